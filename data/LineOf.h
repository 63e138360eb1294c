#pragma once

#include "data/CommissionLine.h"

namespace dalvora {

/// What the three line classes share: the current values, which are the line's own public fields, their saved
/// copies, and the columns as one table per class. `Values` is a plain struct with operator==.
template<class Values> class LineOf : public CommissionLine, public Values {
public:
    explicit LineOf(const DBTable& table) : CommissionLine(table) {}

    QString TextValue(int column) const override;
    void setTextValue(int column, const QString& pValue) override;
    void PostRead() override { Save = values(); }
    bool SysRecordModified() const override { return !(values() == Save); }
    bool SysRecordNull() const override { return values() == Values{}; }

    const Values& values() const { return *this; }

    /// The values as last read: the old key of the line's row. Unchanged texts share their storage with it.
    Values Save;

protected:
    /// Stores an entered, not empty code after looking it up; a refused one is told.
    virtual bool checkCode(const QString& code) = 0;
};

} // namespace dalvora

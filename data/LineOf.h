#pragma once

#include "data/CommissionLine.h"

namespace dalvora {

template<class Values> struct LineColumn;

/// What the three line classes share: the current values, which are the line's own public fields, their saved
/// copies, and the columns as one table per class. `Values` is a plain struct with operator==.
template<class Values> class LineOf : public CommissionLine, public Values {
public:
    explicit LineOf(const DBTable& table) : CommissionLine(table) {}

    QString TextValue(int column) const override;
    bool setTextValue(int column, const QString& pValue) override;
    void PostRead() override { Save = values(); }
    bool SysRecordModified() const override { return !(values() == Save); }
    bool SysRecordNull() const override { return values() == Values{}; }

    const Values& values() const { return *this; }

    /// The values as last read: the old key of the line's row. Unchanged texts share their storage with it.
    Values Save;

protected:
    /// Looks an entered, not empty code up and stores it; a refused one is told.
    virtual bool checkCode(const QString& code) = 0;
    /// An empty code. It changes nothing here, so an amount line cannot lose its document nor a price-list
    /// line its list; product lines do otherwise.
    virtual void clearCode() {}
    /// Tells the lack of a value and remembers its column; always False.
    bool lacks(int column, const QString& message);

private:
    // Each stores the entered text, or tells why not and returns False.
    bool assign(const LineColumn<Values>& column, const QString& pValue);
    bool assignCode(const LineColumn<Values>& column, const QString& pValue);
    bool assignBracketStart(const QString& pValue);
    bool assignBracketEnd(const QString& pValue);
    bool assignPercentage(const LineColumn<Values>& column, const QString& pValue);
    bool store(double Values::*field, double value);
};

} // namespace dalvora

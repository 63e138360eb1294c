#pragma once

#include <QString>

class QLineEdit;

namespace dalvora {

class DetailGrid;
struct MainControls;
struct SessionContext;

/// The record's way through the form: new, read, saved, deleted, new again. Shows progress, brings the record
/// to the controls and says which commands are offered.
class RecordCommands {
public:
    RecordCommands(MainControls& controls, SessionContext& context, DetailGrid* const (&grids)[3]);

    void newRecord();
    bool readRecord(int Pos = 0);
    bool saveRecord();
    bool deleteRecord();
    void refreshCommands();
    /// Header texts, period panel and the three grids from the record.
    void showRecord();
    /// Moves the focus to where the next entry goes: the code, or the lines of a record that is loaded.
    void focusEntry();
    /// Panel "PERIODO" from the record.
    void showPeriod();

    /// Whether the record's percentages accumulate.
    bool accumulates() const;
    /// A read is under way: controls that change now are not the user's doing.
    bool isReading() const { return m_reading; }

private:
    void showAfterFailedRead();
    bool mayBeSaved();
    /// False after a message when the start or end date counts as none.
    bool isValidDay(QLineEdit& date);
    void setKeyEnabled(bool enabled);

    MainControls& m_controls;
    SessionContext& m_context;
    DetailGrid* m_grids[3];
    bool m_reading = false;
};

} // namespace dalvora

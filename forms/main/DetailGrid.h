#pragma once

#include "data/CommissionLine.h"
#include "platform/quorvane32/grid/XGridClient.h"
#include <functional>

namespace quorvane {
class XGrid;
}

namespace dalvora {

class DBTable;
class FormServices;
class LineList;
struct SessionContext;

/// What a user does in one of the three detail grids, brought to the lines of its collection: grid row r is
/// line r, grid column c is the line's column c. Keeps no state; the kinds differ in a table of the source
/// file.
class DetailGrid final : public quorvane::XGridClient {
public:
    struct Surroundings {
        SessionContext& context;
        FormServices& services;
        /// Its cursor takes part in a check of the price lists.
        quorvane::XGrid& productGrid;
        /// Shows the whole record on the form again.
        std::function<void()> showRecord;
    };

    DetailGrid(quorvane::XGrid& grid, LineKind kind, Surroundings surroundings);

    /// Sets the row count from the collection and shows everything anew.
    void showLines();

    void cellText(int row, int column, QString& text) override;
    bool cellTextChanged(int& row, int& column, QString& text) override;
    void newRowRequest() override;
    void keyDown(int& keyCode, Qt::KeyboardModifiers modifiers) override;
    bool cellButton() override;
    void beforeEdit(bool& cancel) override;

private:
    DBTable& table() const;
    LineList& lines() const;
    /// Asks before a line with values goes; false keeps it.
    bool removeRow(int row);
    bool lookUpConcept();
    /// Runs a lookup and stores the chosen code as if it had been typed; false when nothing was chosen.
    bool lookUp(const QString& query, const QString& file, const QString& parameters);
    void beforeProductEdit(bool& cancel);
    void beforePriceListEdit(bool& cancel);

    quorvane::XGrid& m_grid;
    LineKind m_kind;
    Surroundings m_around;
};

} // namespace dalvora

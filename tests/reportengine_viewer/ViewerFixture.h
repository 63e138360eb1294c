#pragma once

#include "platform/reportengine/viewer/ReportViewer.h"
#include "tests/support/ListRows.h"
#include "tests/support/QtPrinters.h"
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace quorvane::report::test {

/// The viewer in a window over rows in memory: sales by salesperson, ten salespeople in turn, one document a
/// row. Events are real ones.
class ViewerFixture : public testing::Test {
protected:
    ViewerFixture();
    ~ViewerFixture() override;

    /// A report of so many rows is shown; nothing of it is laid out yet. `sorted` says that the rows come in
    /// order, so that the report needs no sorting.
    void show(qint64 rows, bool sorted = false);
    /// The same with the connection lost at a row.
    void showFailing(qint64 rows, qint64 failAt);
    /// Until everything is laid out.
    void finish();
    /// A report that is shown and laid out.
    void open(qint64 rows) {
        show(rows);
        finish();
    }

    QAction& action(const char* name) { return part<QAction>(name); }
    void trigger(const char* name) { action(name).trigger(); }
    template<class Part> Part& part(const char* name) {
        auto* found = viewer->findChild<Part*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    PageView& view() { return viewer->pageView(); }
    void press(int key, Qt::KeyboardModifiers modifiers = {}, QWidget* where = nullptr);
    /// A text letter by letter, accents too.
    void type(const QString& text);
    /// Opens the find bar with Ctrl+F, types a text and waits until the search is over.
    QString search(const QString& text);
    QString findMessage() { return part<QLabel>("findMessage").text(); }

    /// The place of a text on a known page, on the viewport; invalid when it is not to be seen.
    QRect placeOf(int page, const QString& text);
    static QString customer(qint64 row);

    std::unique_ptr<Report> report;
    std::unique_ptr<ReportViewer> viewer;

private:
    void show(std::unique_ptr<quorvane::test::ListRows> rows, bool sorted);
};

} // namespace quorvane::report::test

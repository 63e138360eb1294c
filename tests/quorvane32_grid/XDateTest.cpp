#include "platform/quorvane32/grid/XDate.h"
#include "platform/quorvane32/grid/XDateCalendar.h"
#include <QApplication>
#include <QCalendarWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using quorvane::XDate;
using quorvane::XDateCalendar;

class XDateTest : public testing::Test {
protected:
    void SetUp() override {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(date = new XDate(&window));
        layout->addWidget(other = new QLineEdit(&window));
        QObject::connect(date, &XDate::changed, date, [this] { told += date->text(); });
        window.show();
        QApplication::setActiveWindow(&window);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        date->setFocus();
    }
    void enter(const QString& text) {
        date->setFocus();
        date->selectAll();
        if (text.isEmpty())
            QTest::keyClick(date, Qt::Key_Delete);
        for (const char32_t c : text.toStdU32String())
            QTest::sendKeyEvent(QTest::Click, date, Qt::Key_unknown, QString::fromUcs4(&c, 1),
                                Qt::NoModifier);
        other->setFocus();
    }
    XDateCalendar* calendar() const { return date->findChild<XDateCalendar*>(); }
    QWidget* monthView() const { return calendar()->month()->findChild<QTableView*>(); }

    QWidget window;
    XDate* date = nullptr;
    QLineEdit* other = nullptr;
    QStringList told;
};

TEST_F(XDateTest, ShortEntriesAreCompleted) {
    const QString year = QString::number(QDate::currentDate().year());
    const QList<std::pair<QString, QString>> entries = {
        {QStringLiteral("5/3/2006"), QStringLiteral("05/03/2006")},
        {QStringLiteral("5-3-06"), QStringLiteral("05/03/2006")},
        {QStringLiteral("31.12.99"), QStringLiteral("31/12/1999")},
        {QStringLiteral(" 1/2/1900 "), QStringLiteral("01/02/1900")},
        {QStringLiteral("5/3"), QStringLiteral("05/03/") + year},
        {QStringLiteral("5-4-"), QStringLiteral("05/04/") + year},
    };
    for (const auto& [typed, shown] : entries) {
        enter(typed);
        EXPECT_EQ(date->text(), shown) << typed.toStdString();
        EXPECT_TRUE(date->isValid());
        EXPECT_EQ(told.last(), shown);
    }
}

TEST_F(XDateTest, InvalidTextStaysAsTypedAndIsToldOnce) {
    for (const QString& bad : {QStringLiteral("31/02/2006"), QStringLiteral("1/1/10000"),
                               QStringLiteral("mañana"), QStringLiteral("1/2/3/4"), QStringLiteral("😀")}) {
        told.clear();
        enter(bad);
        EXPECT_EQ(date->text(), bad);
        EXPECT_FALSE(date->isValid());
        EXPECT_EQ(told, QStringList(bad));
    }
}

TEST_F(XDateTest, OwnerMayPutTheOldTextBackWhileRefusing) {
    date->setText(QStringLiteral("01/01/2006"));
    QObject::connect(date, &XDate::changed, &window, [this] {
        if (date->isValid())
            return;
        QMessageBox box(&window);
        QTimer::singleShot(30, &box, &QDialog::accept);
        box.exec();
        date->setText(QStringLiteral("01/01/2006"));
    });
    enter(QStringLiteral("31/02/2006"));
    EXPECT_EQ(told, QStringList(QStringLiteral("31/02/2006")));
    EXPECT_EQ(date->text(), QStringLiteral("01/01/2006"));
    QApplication::setActiveWindow(&window);
    told.clear();
    enter(QStringLiteral("1/1/06"));
    EXPECT_EQ(date->text(), QStringLiteral("01/01/2006"));
    EXPECT_TRUE(told.isEmpty()) << "the text is what it was";
}

TEST_F(XDateTest, EmptyIsAllowedAndBlanksAreEmpty) {
    date->setText(QStringLiteral("01/01/2006"));
    enter(QString());
    EXPECT_EQ(told, QStringList(QString()));
    EXPECT_TRUE(date->isValid());
    enter(QStringLiteral("   "));
    EXPECT_EQ(date->text(), QString());
    EXPECT_EQ(told.size(), 1);
}

TEST_F(XDateTest, SettingTheTextAndLeavingUnchangedTellNothing) {
    date->setText(QStringLiteral("01/01/2006"));
    other->setFocus();
    date->setFocus();
    QTest::keyClick(date, Qt::Key_Return);
    enter(QStringLiteral("1/1/2006"));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(XDateTest, EnterEndsTheEntry) {
    for (const QChar c : QStringLiteral("2/3/07"))
        QTest::sendKeyEvent(QTest::Click, date, Qt::Key_unknown, QString(c), Qt::NoModifier);
    EXPECT_TRUE(told.isEmpty());
    QTest::keyClick(date, Qt::Key_Return);
    EXPECT_EQ(told, QStringList(QStringLiteral("02/03/2007")));
    other->setFocus();
    EXPECT_EQ(told.size(), 1);
}

TEST_F(XDateTest, CalendarOpensOnTheDateAndEnterChooses) {
    date->setText(QStringLiteral("15/03/2006"));
    QTest::keyClick(date, Qt::Key_Down, Qt::AltModifier);
    ASSERT_TRUE(date->isCalendarOpen());
    EXPECT_EQ(calendar()->month()->selectedDate(), QDate(2006, 3, 15));
    QTest::keyClick(monthView(), Qt::Key_Right);
    QTest::keyClick(monthView(), Qt::Key_Return);
    EXPECT_FALSE(date->isCalendarOpen());
    EXPECT_EQ(date->text(), QStringLiteral("16/03/2006"));
    EXPECT_EQ(told, QStringList(QStringLiteral("16/03/2006")));
    EXPECT_TRUE(date->hasFocus());
}

TEST_F(XDateTest, EscapeClosesTheCalendarWithoutAChange) {
    date->setText(QStringLiteral("15/03/2006"));
    QTest::keyClick(date, Qt::Key_F4);
    ASSERT_TRUE(date->isCalendarOpen());
    QTest::keyClick(monthView(), Qt::Key_Right);
    QTest::keyClick(monthView(), Qt::Key_Escape);
    EXPECT_FALSE(date->isCalendarOpen());
    EXPECT_EQ(date->text(), QStringLiteral("15/03/2006"));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(XDateTest, ButtonOpensTheCalendarAndTodayIsChosenWithOneClick) {
    QTest::mouseClick(date->findChild<QToolButton*>(QString(), Qt::FindDirectChildrenOnly), Qt::LeftButton);
    ASSERT_TRUE(date->isCalendarOpen());
    EXPECT_EQ(calendar()->month()->selectedDate(), QDate::currentDate());
    QTest::mouseClick(calendar()->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(date->text(), QDate::currentDate().toString(QStringLiteral("dd/MM/yyyy")));
    EXPECT_EQ(told.size(), 1);
}

TEST_F(XDateTest, CalendarSpeaksSpanish) {
    date->openCalendar();
    const QLocale locale = calendar()->month()->locale();
    EXPECT_EQ(locale.monthName(1), QStringLiteral("enero"));
    EXPECT_EQ(calendar()->month()->firstDayOfWeek(), Qt::Monday);
}

TEST_F(XDateTest, DisabledControlOpensNothing) {
    date->setEnabled(false);
    QTest::mouseClick(date->findChild<QToolButton*>(QString(), Qt::FindDirectChildrenOnly), Qt::LeftButton);
    EXPECT_FALSE(date->isCalendarOpen());
}

TEST_F(XDateTest, MaskAndTextAreProperties) {
    EXPECT_EQ(date->property("mask").toString(), QStringLiteral("short date"));
    date->setProperty("text", QStringLiteral("01/02/2006"));
    EXPECT_EQ(date->property("text").toString(), QStringLiteral("01/02/2006"));
}

TEST_F(XDateTest, TenThousandCharactersAreOnlyAnInvalidText) {
    date->setText(QStringLiteral("01/02/2006"));
    date->selectAll();
    date->insert(QString(10000, u'9'));
    other->setFocus();
    EXPECT_FALSE(date->isValid());
    EXPECT_EQ(told.size(), 1);
}

// The manual's keyboard page against the commands of the main window themselves.

#include "forms/main/MainCommands.h"
#include "forms/vendedor/VendedorControls.h"
#include "platform/help/HelpFile.h"
#include "platform/help/HelpText.h"

#include <gtest/gtest.h>

namespace {

// A key combination as Spanish keyboards name it.
QString spanishKeys(const char* keys) {
    QString text = QString::fromLatin1(keys);
    text.replace(QStringLiteral("Shift"), QStringLiteral("Mayús"));
    text.replace(QStringLiteral("Home"), QStringLiteral("Inicio"));
    text.replace(QStringLiteral("PgDown"), QStringLiteral("AvPág"));
    text.replace(QStringLiteral("Del"), QStringLiteral("Supr"));
    return text;
}

TEST(ManualKeys, EveryShortcutOfTheMainWindowIsExplained) {
    const help::HelpFile manual(QStringLiteral(DALVORA_HELP_FILE));
    const QString html = manual.html(QStringLiteral("teclado.html")).value_or(QString());
    const auto explained = [&html](const char* keys) {
        return html.contains(QStringLiteral("<span class=\"tecla\">%1</span></td>").arg(spanishKeys(keys)));
    };
    int shortcuts = 0;
    for (const dalvora::MenuCommand& command : dalvora::menuCommands) {
        if (*command.shortcut == 0)
            continue;
        EXPECT_TRUE(explained(command.shortcut)) << command.shortcut;
        ++shortcuts;
    }
    for (const dalvora::ToolbarCommand& command : dalvora::toolbarCommands)
        EXPECT_TRUE(*command.shortcut == 0 || explained(command.shortcut)) << command.shortcut;
    EXPECT_GE(shortcuts, 12);
}

TEST(ManualKeys, TheMenuOfTheSalespeopleIsExplained) {
    const help::HelpFile manual(QStringLiteral(DALVORA_HELP_FILE));
    const QString keys = manual.html(QStringLiteral("teclado.html")).value_or(QString());
    const QString text = help::plainText(manual.html(QStringLiteral("vendedores.html")).value_or(QString()));
    for (const dalvora::VendedorMenuItem& item : dalvora::vendedorMenu) {
        if (item.caption == u"-")
            continue;
        EXPECT_TRUE(text.contains(item.caption.toString().remove(u'&'))) << qPrintable(item.name.toString());
        EXPECT_TRUE(keys.contains(
            QStringLiteral("<span class=\"tecla\">%1</span></td>").arg(spanishKeys(item.shortcut))))
            << item.shortcut;
    }
}

TEST(ManualKeys, EveryMenuItemIsInThePageOfTheMainWindow) {
    const help::HelpFile manual(QStringLiteral(DALVORA_HELP_FILE));
    const QString text = help::plainText(manual.html(QStringLiteral("ventana.html")).value_or(QString()));
    for (const dalvora::MenuCommand& command : dalvora::menuCommands) {
        const QString caption = command.caption.toString().remove(u'&');
        EXPECT_TRUE(caption == u"-" || text.contains(caption)) << qPrintable(caption);
    }
    for (const dalvora::ToolbarCommand& command : dalvora::toolbarCommands)
        EXPECT_TRUE(text.contains(command.toolTip.trimmed().toString()))
            << qPrintable(command.toolTip.toString());
}

} // namespace

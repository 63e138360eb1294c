#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <span>

namespace quorvane::admin {

/// An option of an order: --name VALUE, or --name alone.
struct Option {
    const char16_t* name;
    const char* value; ///< what its value is, "" for an option without one
    const char* meaning;
};

/// The command line taken apart: words in their order, and options.
struct CommandLine {
    QStringList words;
    QHash<QString, QString> options;

    bool has(const QString& option) const { return options.contains(option); }
    QString value(const QString& option) const { return options.value(option); }
};

/// Takes words and options apart; options may stand anywhere, as "--name VALUE" or "--name=VALUE". Four
/// letters of rights are a word though they begin with "-". What is wrong comes back in `mistake`, in
/// Spanish.
CommandLine parseCommandLine(const QStringList& arguments, std::span<const Option> known, QString& mistake);

} // namespace quorvane::admin

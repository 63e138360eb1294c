#include "demo/Labels.h"

#include "platform/quorvane32/base/RunTimeError.h"
#include <QStringList>

namespace dalvora::demo {

namespace {

constexpr CategoryLabel categories[] = {
    {"Beverages", "BEBIDAS", "Bebidas", false},
    {"Condiments", "CONDIMENTOS", "Condimentos y salsas", false},
    {"Confections", "REPOSTERIA", "Repostería y dulces", false},
    {"Dairy Products", "LACTEOS", "Productos lácteos", true},
    {"Grains/Cereals", "CEREALES", "Granos y cereales", false},
    {"Meat/Poultry", "CARNES", "Carnes y aves", true},
    {"Produce", "HORTALIZAS", "Frutas y hortalizas", true},
    {"Seafood", "PESCADOS", "Pescados y mariscos", true},
};

struct Country {
    const char* name;
    const char* label;
    bool american;
};

constexpr Country countries[] = {
    {"Argentina", "Argentina", true},
    {"Australia", "Australia", false},
    {"Austria", "Austria", false},
    {"Belgium", "Bélgica", false},
    {"Brazil", "Brasil", true},
    {"Canada", "Canadá", true},
    {"Denmark", "Dinamarca", false},
    {"Finland", "Finlandia", false},
    {"France", "Francia", false},
    {"Germany", "Alemania", false},
    {"Ireland", "Irlanda", false},
    {"Italy", "Italia", false},
    {"Japan", "Japón", false},
    {"Mexico", "México", true},
    {"Netherlands", "Países Bajos", false},
    {"Norway", "Noruega", false},
    {"Poland", "Polonia", false},
    {"Portugal", "Portugal", false},
    {"Singapore", "Singapur", false},
    {"Spain", "España", false},
    {"Sweden", "Suecia", false},
    {"Switzerland", "Suiza", false},
    {"UK", "Reino Unido", false},
    {"USA", "Estados Unidos", true},
    {"Venezuela", "Venezuela", true},
};

struct Packaging {
    const char* word;
    const char* unit;
};

// Of two words that begin at the same place the first listed counts: "pieces" is no pie.
constexpr Packaging packagings[] = {
    {"box", "CAJA"},  {"bag", "BOLSA"},   {"bottle", "BOTELLA"}, {"jar", "FRASCO"},
    {"can", "LATA"},  {"tin", "LATA"},    {"pkg", "PAQUETE"},    {"glass", "VASO"},
    {"bar", "BARRA"}, {"piece", "PIEZA"}, {"pie", "PASTEL"},     {"round", "PIEZA"},
};

template<class Entry, std::size_t count>
const Entry& entryNamed(const Entry (&table)[count], const QString& name) {
    for (const Entry& entry : table)
        if (name == QLatin1String(entry.name))
            return entry;
    quorvane::raise(quorvane::ErrorItemNotFound);
}

} // namespace

const CategoryLabel& categoryLabel(const QString& name) {
    return entryNamed(categories, name);
}

const CategoryLabel& categoryLabelOfCode(const QString& code) {
    for (const CategoryLabel& category : categories)
        if (code == QLatin1String(category.code))
            return category;
    quorvane::raise(quorvane::ErrorItemNotFound);
}

QString countryLabel(const QString& country) {
    return country.isEmpty() ? country : QString::fromUtf8(entryNamed(countries, country).label);
}

bool isAmerican(const QString& country) {
    return entryNamed(countries, country).american;
}

QString unitOf(const QString& quantityPerUnit) {
    QString unit = QStringLiteral("UNIDAD");
    qsizetype first = quantityPerUnit.size();
    for (const Packaging& packaging : packagings) {
        const qsizetype position = quantityPerUnit.indexOf(QLatin1String(packaging.word));
        if (position >= 0 && position < first) {
            first = position;
            unit = QLatin1String(packaging.unit);
        }
    }
    return unit;
}

QString codeOfName(const QString& name) {
    constexpr qsizetype longest = 20;
    QString code;
    for (const QString& word : name.toUpper().split(u' ', Qt::SkipEmptyParts)) {
        const QString longer = code.isEmpty() ? word : code + u' ' + word;
        if (longer.size() > longest)
            break;
        code = longer;
    }
    while (code.endsWith(u',') || code.endsWith(u'.'))
        code.chop(1);
    return code;
}

} // namespace dalvora::demo

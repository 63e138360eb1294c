#include "platform/quorvane32/base/Value.h"
#include "platform/quorvane32/base/RunTimeError.h"
#include <array>

namespace quorvane {

namespace {

template<class... Handlers> struct Overloaded : Handlers... { using Handlers::operator()...; };
template<class... Handlers> Overloaded(Handlers...) -> Overloaded<Handlers...>;

/// A Single in the fewest digits that tell it from its neighbours (0.1, not 0.10000000149).
double shortestDouble(float number) {
    return QByteArray::number(number, 'g', 7).toDouble();
}

} // namespace

Kind Value::kind() const {
    // In the order of the variant's alternatives.
    static constexpr std::array kinds = {Kind::Empty,  Kind::Null,    Kind::Integer,  Kind::Long,
                                         Kind::Single, Kind::Double,  Kind::Currency, Kind::Date,
                                         Kind::String, Kind::Boolean, Kind::Decimal,  Kind::Byte};
    return kinds[m_data.index()];
}

QString Value::toText(const RegionalSettings& regional) const {
    return std::visit(
        Overloaded{
            [](std::monostate) { return QString(); },
            [](Null) -> QString { raise(ErrorInvalidNull); },
            [](qint16 number) { return QString::number(number); },
            [](qint32 number) { return QString::number(number); },
            [](quint8 number) { return QString::number(number); },
            [&](float number) { return regional.numberText(shortestDouble(number)); },
            [&](double number) { return regional.numberText(number); },
            [&](Currency amount) {
                return Decimal(amount.tenThousandths, 4).toText(regional.decimalSeparator);
            },
            [&](Date date) { return regional.dateText(date); },
            [](const QString& text) { return text; },
            [](bool truth) { return truth ? QStringLiteral("Verdadero") : QStringLiteral("Falso"); },
            [&](Decimal number) { return number.toText(regional.decimalSeparator); },
        },
        m_data);
}

double Value::toNumber(const RegionalSettings& regional) const {
    return std::visit(Overloaded{
                          [](std::monostate) { return 0.0; },
                          [](Null) -> double { raise(ErrorInvalidNull); },
                          [](float number) { return shortestDouble(number); },
                          [](Currency amount) { return Decimal(amount.tenThousandths, 4).toDouble(); },
                          [](Date date) { return date.serial(); },
                          [&](const QString& text) { return regional.parseNumber(text); },
                          [](bool truth) { return truth ? -1.0 : 0.0; },
                          [](Decimal number) { return number.toDouble(); },
                          [](auto number) { return static_cast<double>(number); },
                      },
                      m_data);
}

bool Value::toBoolean(const RegionalSettings& regional) const {
    if (const QString* text = get<QString>()) {
        for (const char16_t* truth : {u"True", u"Verdadero"})
            if (text->compare(QStringView(truth), Qt::CaseInsensitive) == 0)
                return true;
        for (const char16_t* falsehood : {u"False", u"Falso"})
            if (text->compare(QStringView(falsehood), Qt::CaseInsensitive) == 0)
                return false;
    }
    return toNumber(regional) != 0;
}

} // namespace quorvane

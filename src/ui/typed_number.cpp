#include "ui/typed_number.h"

#include "text/number_text.h"
#include "ui/named_controls.h"

#include <QRegularExpression>

#include <cstdint>
#include <optional>

namespace pistaro {

namespace {

/// Digits in the groups of three in which amounts are shown, with the desktop's signs, as the core writes numbers. No
/// text where it is none of that: "3.50" has no groups where these are divided by points.
QString Ungrouped(const QString& typed, const QLocale& desktop) {
    const QString mark = desktop.groupSeparator().trimmed();
    const QString between = mark.isEmpty() ? QString(' ') : mark; // any blank is as good as the desktop's
    const QString decimal = desktop.decimalPoint();
    const QRegularExpression form("^[+-]?([0-9]{1,3}(" + QRegularExpression::escape(between) + "[0-9]{3})+|[0-9]+)(" +
                                  QRegularExpression::escape(decimal) + "[0-9]+)?$");
    QString text = typed.simplified();
    if (!form.match(text).hasMatch()) return {};
    return text.remove(between).replace(decimal, ".");
}

/// Nothing where it is no number.
std::optional<double> ValueOf(const QString& typed, const QLocale& desktop) {
    if (typed.trimmed().isEmpty()) return 0;
    const std::string number = PlainNumber(typed, desktop);
    return IsNumber(number) ? std::optional(ParseNumber(number)) : std::nullopt;
}

} // namespace

std::string PlainNumber(const QString& text, const QLocale& desktop) {
    QString typed = text;
    typed.removeIf([](QChar character) { return character.category() == QChar::Symbol_Currency; });
    bool isNumber = false;
    const double value = desktop.toDouble(typed.trimmed(), &isNumber);
    if (isNumber) return NumberText(value);
    // Not every desktop divides into threes, and some only long numbers.
    if (const QString number = Ungrouped(typed, desktop); !number.isEmpty())
        return NumberText(ParseNumber(number.toStdString()));
    // One comma alone is meant as the decimal one wherever the desktop does not take it for something else.
    const bool hasDecimalComma = typed.count(',') == 1 && !typed.contains('.');
    return (hasDecimalComma ? typed.replace(',', '.') : typed).trimmed().toStdString();
}

QString WhyNoPrice(const QString& typed, const QLocale& desktop) {
    constexpr double most = 1'000'000; // no piece costs so much, and its sums are still exact
    const std::optional<double> price = ValueOf(typed, desktop);
    if (price && *price > most) return "A price is at most " + Amount(CentsOf(most), desktop) + ".";
    if (price && *price >= 0) return {};
    return "A price is a number such as " + Amount(495, desktop) + ".";
}

QString WhyNoCount(const QString& typed, int most, const QLocale& desktop) {
    const std::optional<double> count = ValueOf(typed, desktop);
    const bool isWhole = count && RoundedWithin<int>(*count, 0, most) == *count;
    return isWhole ? QString() : QString("A count is a whole number from 0 to %1.").arg(most);
}

MoneyMarks DesktopMarks(const QLocale& desktop) {
    const bool isGrouped = !desktop.numberOptions().testFlag(QLocale::OmitGroupSeparator);
    return {desktop.decimalPoint().toStdString(), isGrouped ? desktop.groupSeparator().toStdString() : std::string()};
}

QString Amount(Cents cents, const QLocale& desktop) { return Shown(MoneyText(cents, DesktopMarks(desktop))); }

QString Amount(Cents cents, const std::string& currency) {
    return Amount(cents) + (currency.empty() ? "" : " " + Shown(CurrencySign(currency)));
}

QString WithSign(const QString& caption, const std::string& currency) {
    return caption + (currency.empty() ? "" : " (" + Shown(CurrencySign(currency)) + ")");
}

} // namespace pistaro

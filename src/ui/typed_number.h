// Numbers and amounts as the desktop writes them, where people read and type these.
#pragma once

#include "model/money.h"

#include <QLocale>
#include <QString>

#include <cstdint>
#include <limits>
#include <string>

namespace pistaro {

/// What was typed as the number texts of the core, whatever the desktop's decimal sign and without a currency's;
/// amounts are read as they are shown; as it stands, but for a decimal comma, where it is no number to the desktop.
std::string PlainNumber(const QString& text, const QLocale& desktop = QLocale::system());

/// Why what was typed is no price, as a sentence with an example in the desktop's format; nothing where it is one. No
/// text is the price 0.
QString WhyNoPrice(const QString& typed, const QLocale& desktop = QLocale::system());

/// So many pieces of a product the settings can hold.
inline constexpr int MostOwned = std::numeric_limits<std::int16_t>::max();

/// The same of a count of pieces, which no text makes 0.
QString WhyNoCount(const QString& typed, int most = MostOwned, const QLocale& desktop = QLocale::system());

/// Of the desktop.
MoneyMarks DesktopMarks(const QLocale& desktop = QLocale::system());

/// Money without its currency: "1.234,50" on a German desktop.
QString Amount(Cents cents, const QLocale& desktop = QLocale::system());

/// With its currency's sign: "1.234,50 €".
QString Amount(Cents cents, const std::string& currency);

/// Over amounts without it: "Price (€)".
QString WithSign(const QString& caption, const std::string& currency);

} // namespace pistaro

#include "platform/system_formats.h"

#include "platform/qt_text.h"
#include "platform/text.h"

#include <QRegularExpression>

namespace bramblet {
namespace {

bool inCodePage(const QString& text) {
    return toQt(fromQt(text)) == text;
}

/// A separator of the locale in the code page: every kind of blank is the no-break blank there,
/// and one that it lacks is `otherwise`.
std::string separator(const QString& text, const char* otherwise) {
    if (text.isEmpty()) return {};
    if (text.trimmed().isEmpty()) return "\xA0";
    return inCodePage(text) ? fromQt(text) : otherwise;
}

std::string currencySign(const QLocale& locale) {
    QString sign = locale.currencySymbol(QLocale::CurrencySymbol);
    sign.replace(QChar(0xFFE5), QChar(0xA5));  // the full-width yen sign
    if (sign.isEmpty()) sign = QStringLiteral("$");
    if (inCodePage(sign)) return fromQt(sign);
    return fromQt(locale.currencySymbol(QLocale::CurrencyIsoCode));
}

/// Decimals of a currency; the locale writes them out in an amount of its own.
int currencyDecimals(const QLocale& locale) {
    const QString amount = locale.toCurrencyString(1.0);
    const auto point = amount.lastIndexOf(locale.decimalPoint());
    if (point < 0) return 0;
    int decimals = 0;
    for (auto i = point + 1; i < amount.size() && amount[i].isDigit(); ++i)
        ++decimals;
    return decimals;
}

/// What the locale writes around the digits of an amount, with its sign as the code page has it.
struct Around {
    std::string prefix;
    std::string suffix;
};
Around around(const QLocale& locale, double amount, const std::string& sign) {
    const QString text = locale.toCurrencyString(amount);
    static const QRegularExpression digits(QStringLiteral("\\d([\\d\\D]*\\d)?"));
    const auto match = digits.match(text);
    const auto adapted = [&](QString part) {
        part.replace(locale.currencySymbol(QLocale::CurrencySymbol), toQt(sign));
        part.replace(QChar(0x2212), QLatin1Char('-'));  // the minus sign
        for (QChar& c : part) {
            if (c.isSpace()) c = QChar(0xA0);
        }
        part.remove(QChar(0x200E)).remove(QChar(0x200F));
        return fromQt(part);
    };
    return {adapted(text.left(match.capturedStart())), adapted(text.mid(match.capturedEnd()))};
}

std::vector<int> grouping(const QLocale& locale) {
    const QString number = locale.toString(123456789.0, 'f', 0);
    std::vector<int> groups;
    int digits = 0;
    for (auto i = number.size() - 1; i >= 0; --i) {
        if (number[i].isDigit()) {
            ++digits;
        } else if (digits > 0) {
            groups.push_back(digits);
            digits = 0;
        }
    }
    if (groups.empty()) return {3};
    if (groups.size() > 1 && groups.back() == groups[groups.size() - 2]) groups.pop_back();
    return groups;
}

std::string shortDate(const QLocale& locale) {
    QString pattern = locale.dateFormat(QLocale::ShortFormat);
    pattern.remove(QLatin1Char('\'')).remove(QChar(0x200E)).remove(QChar(0x200F));
    static const QRegularExpression year(QStringLiteral("y+"));
    pattern.replace(year, QStringLiteral("yyyy"));
    static const QRegularExpression monthName(QStringLiteral("MMM+"));
    pattern.replace(monthName, QStringLiteral("MM"));
    static const QRegularExpression dayName(QStringLiteral("ddd+[,. ]*"));
    pattern.remove(dayName);
    // An era or anything else but digits and separators would not be read back.
    static const QRegularExpression plain(QStringLiteral("^[dMy/.\\- ]+$"));
    return plain.match(pattern).hasMatch() ? fromQt(pattern) : "yyyy-MM-dd";
}

}  // namespace

RegionalFormats regionalFormats(const QLocale& locale) {
    RegionalFormats formats;
    formats.decimalSeparator = separator(locale.decimalPoint(), ".");
    formats.groupSeparator = separator(locale.groupSeparator(), ",");
    formats.grouping = grouping(locale);
    formats.currencySign = currencySign(locale);
    formats.currencyDecimals = currencyDecimals(locale);
    const Around positive = around(locale, 1, formats.currencySign);
    const Around negative = around(locale, -1, formats.currencySign);
    formats.currencyPrefix = positive.prefix;
    formats.currencySuffix = positive.suffix;
    formats.currencyNegativePrefix = negative.prefix;
    formats.currencyNegativeSuffix = negative.suffix;
    formats.shortDate = shortDate(locale);
    for (int month = 1; month <= 12; ++month) {
        const QString name = locale.standaloneMonthName(month, QLocale::LongFormat);
        if (inCodePage(name))
            formats.monthNames[static_cast<std::size_t>(month - 1)] = fromQt(name);
    }
    formats.firstDayOfWeek = static_cast<int>(locale.firstDayOfWeek());
    return formats;
}

RegionalFormats systemRegionalFormats() {
    const QLocale system = QLocale::system();
    const bool unset = system.language() == QLocale::C;
    return regionalFormats(unset ? QLocale(QLocale::English, QLocale::UnitedStates) : system);
}

}  // namespace bramblet

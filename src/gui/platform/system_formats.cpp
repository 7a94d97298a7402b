#include "gui/platform/system_formats.h"

#include "core/platform/text.h"
#include "gui/platform/qt_text.h"

#include <QRegularExpression>

#include <algorithm>
#include <tuple>
#include <utility>

namespace bramblet {
namespace {

bool inCodePage(const QString& text) {
    return toQt(fromQt(text)) == text;
}

/// Without the marks that only control right-to-left layout.
QString withoutMarks(QString text) {
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Format; });
    return text;
}

/// With 0 to 9 in place of the region's own digits.
QString withPlainDigits(const QString& text) {
    QString plain;
    for (const char32_t point : text.toUcs4())
        plain += QChar::isDigit(point) ? QString::number(QChar::digitValue(point))
                                       : QString::fromUcs4(&point, 1);
    return plain;
}

/// A separator of the locale in the code page: any kind of space becomes the no-break space, and
/// anything that the code page lacks becomes `otherwise`.
std::string separator(const QString& text, const char* otherwise) {
    if (text.isEmpty()) return {};
    if (text.trimmed().isEmpty()) return "\xA0";
    return inCodePage(text) ? fromQt(text) : otherwise;
}

std::string currencySign(const QLocale& locale) {
    QString sign = locale.currencySymbol(QLocale::CurrencySymbol);
    sign.replace(QChar(0xFFE5), QChar(0xA5));  // the full-width yen sign
    // A currency without a sign in the code page goes by its three letters.
    if (sign.isEmpty() || !inCodePage(sign)) sign = locale.currencySymbol(QLocale::CurrencyIsoCode);
    return sign.isEmpty() ? "$" : fromQt(sign);
}

/// A currency's number of decimals, counted in an amount that the locale writes out.
int currencyDecimals(const QLocale& locale) {
    const QString amount = withPlainDigits(locale.toCurrencyString(1.0));
    const auto point = amount.lastIndexOf(locale.decimalPoint());
    if (point < 0) return 0;
    int decimals = 0;
    for (auto i = point + 1; i < amount.size() && amount[i].isDigit(); ++i)
        ++decimals;
    return decimals;
}

/// What the locale writes before and after the digits of an amount, with the currency sign as
/// `sign` has it.
std::pair<std::string, std::string> around(const QLocale& locale, double amount,
                                           const std::string& sign) {
    const QString text = withPlainDigits(locale.toCurrencyString(amount));
    const auto isDigit = [](QChar c) { return c.isDigit(); };
    const auto first = std::find_if(text.begin(), text.end(), isDigit) - text.begin();
    const auto last = text.rend() - std::find_if(text.rbegin(), text.rend(), isDigit);
    const auto adapted = [&](QString part) {
        const QString symbol = locale.currencySymbol(QLocale::CurrencySymbol);
        if (!symbol.isEmpty()) part.replace(symbol, toQt(sign));
        part.replace(QChar(0x2212), QLatin1Char('-'));  // the minus sign
        for (QChar& c : part) {
            if (c.isSpace()) c = QChar(0xA0);
        }
        return fromQt(withoutMarks(part));
    };
    return {adapted(text.left(first)), adapted(text.mid(last))};
}

std::vector<int> grouping(const QLocale& locale) {
    const QString number = withPlainDigits(locale.toString(123456789.0, 'f', 0));
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
    pattern = withoutMarks(pattern.remove(QLatin1Char('\'')));
    static const QRegularExpression year(u"y+"_s);
    pattern.replace(year, u"yyyy"_s);
    static const QRegularExpression monthName(u"MMM+"_s);
    pattern.replace(monthName, u"MM"_s);
    static const QRegularExpression dayName(u"ddd+[,. ]*"_s);
    pattern.remove(dayName);
    // An era, or anything but digits and separators, could not be read back.
    static const QRegularExpression plain(u"^[dMy/.\\- ]+$"_s);
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
    std::tie(formats.currencyPrefix, formats.currencySuffix) =
        around(locale, 1, formats.currencySign);
    std::tie(formats.currencyNegativePrefix, formats.currencyNegativeSuffix) =
        around(locale, -1, formats.currencySign);
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

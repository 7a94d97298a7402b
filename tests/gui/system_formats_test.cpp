// The formats of every region that Qt knows can be written in the code page and read back.

#include "gui/platform/system_formats.h"

#include "core/platform/amount_text.h"
#include "gui/platform/qt_text.h"

#include <gtest/gtest.h>

namespace bramblet {
namespace {

TEST(RegionalFormats, AmountsOfAllRegionsAreReadBackAsTheyAreWritten) {
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    EXPECT_GT(locales.size(), 300);
    for (const QLocale& locale : locales) {
        const RegionalFormats formats = regionalFormats(locale);
        const double amount = formats.currencyDecimals == 0 ? 1234567 : 1234567.5;
        for (const std::string& written :
             {currencyText(amount, formats), standardText(amount, formats)}) {
            SCOPED_TRACE(locale.name().toStdString() + ": " + written);
            EXPECT_EQ(written.find('?'), std::string::npos);
            EXPECT_NO_THROW(EXPECT_EQ(numberOf(written, formats), amount));
        }
    }
}

TEST(RegionalFormats, RegionsWithDigitsOrSignsOfTheirOwnGetPlainOnes) {
    struct Case {
        const char* region;
        double amount;
        const char* written;
    };
    for (const auto& [region, amount, written] : {
             Case{"ar_EG", 1234.5, "1,234.50\u00A0EGP"},
             Case{"ar_EG", -1234.5, "-1,234.50\u00A0EGP"},
             Case{"ar_SA", 1234.5, "1,234.50\u00A0SAR"},
             Case{"fa_IR", 1234, "IRR\u00A01,234"},
             Case{"mr_IN", 1234.5, "INR1,234.50"},
             Case{"en_CH", 1234.5, "CHF\u00A01’234.50"},
             Case{"ff-Adlm-GN", 1234, "FG\u00A01,234"},
         }) {
        const RegionalFormats formats = regionalFormats(QLocale(region));
        EXPECT_EQ(toQt(currencyText(amount, formats)), written) << region;
    }
}

}  // namespace
}  // namespace bramblet

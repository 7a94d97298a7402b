#include "core/platform/text.h"

#include "core/platform/code_page.h"
#include "core/platform/path_text.h"

#include <gtest/gtest.h>

namespace bramblet::test {
namespace {

using namespace std::string_literals;

TEST(Text, TrimmingRemovesBlanksOnlyAndZeroBytesOfFields) {
    EXPECT_EQ(trimmed("  a b \t"), "a b \t");
    EXPECT_EQ(trimmed("   "), "");
    EXPECT_EQ(trimmed("\0a"s), "\0a"s);
    EXPECT_EQ(trimmedField("\0\0\0"s), "");
    EXPECT_EQ(trimmedField(" Acme \0 \0"s), "Acme");
}

TEST(Text, UpperCaseKnowsTheLettersOfTheCodePage) {
    EXPECT_EQ(upper("caf\xE9 \x9C\x9A\x9E\xFF"), "CAF\xC9 \x8C\x8A\x8E\x9F");
    const std::string withoutCapitals = "\xF7\xDF\xD7\xB5";
    EXPECT_EQ(upper(withoutCapitals), withoutCapitals);
}

TEST(Text, UnicodeKeepsEveryByteAndWhatTheCodePageLacksBecomesAQuestionMark) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_EQ(fromUnicode(toUnicode(all)), all);
    EXPECT_EQ(toUnicode("\x80\x93"), u"\u20AC\u201C");
    EXPECT_EQ(fromUnicode(u"\u0141\u00F3d\u017A"), "?\363d?");
    EXPECT_EQ(fromUnicode(u"a\U0001F600b"), "a?b");
}

std::filesystem::path pathOf(const std::u8string& text) {
    return text;
}

TEST(Paths, ANameInTheCodePageIsOneComponent) {
    EXPECT_EQ(pathOfName("caf\xE9\x80.htm"), pathOf(u8"caf\u00E9\u20AC.htm"));
    EXPECT_EQ(pathOfName("\xC3\xA9"), pathOf(u8"\u00C3\u00A9")) << "never taken for UTF-8";
}

TEST(Paths, FoldersComeBackFromTheirTextsInTheSettings) {
    const struct {
        std::u8string folder;
        std::string text;
    } table[] = {{u8"/srv/data/", "/srv/data/"},
                 {u8"/home/jos\u00E9/", "/home/jos\xE9/"},
                 {u8"/home/\u0142ukasz/", "/home/\xC5\x82ukasz/"},
                 {u8"/home/\u0142ukasz/caf\u00E9", "/home/\xC5\x82ukasz/caf\xC3\xA9"},
                 {u8"/\u00C3\u00A9/", "/\xC3\x83\xC2\xA9/"},  // would else be read as UTF-8
                 {u8"/\U0001F600/", "/\xF0\x9F\x98\x80/"}};
    for (const auto& one : table) {
        EXPECT_EQ(folderText(pathOf(one.folder)), one.text);
        EXPECT_EQ(pathOfFolder(one.text), pathOf(one.folder));
    }
    EXPECT_EQ(pathOfFolder("/home/\xC5\x82ukasz/caf\xE9/"),
              pathOf(u8"/home/\u0142ukasz/caf\u00E9/"));
#ifndef _WIN32
    EXPECT_EQ(folderText("/caf\xE9/"), std::nullopt) << "not UTF-8 on the disk";
#endif
}

TEST(Paths, AreReadableInMessages) {
    const std::string message = "caf\xE9: " + shown(pathOf(u8"/\u0142\u00F3d\u017A/\U0001F600"));
    EXPECT_EQ(messageToUnicode(message), u"caf\u00E9: /\u0142\u00F3d\u017A/\U0001F600");
#ifndef _WIN32
    EXPECT_EQ(shown("/caf\xE9"), "/caf\xE9") << "no UTF-8: best read as code page text";
#endif
}

}  // namespace
}  // namespace bramblet::test

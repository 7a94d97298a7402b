#include "platform/text.h"

#include "platform/code_page.h"

#include <gtest/gtest.h>

namespace bramblet {
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
    EXPECT_EQ(upper("\xF7\xDF\xD7\xB5"),
              "\xF7\xDF\xD7\xB5");  // signs and letters without a capital
}

TEST(Text, EveryByteSurvivesTheWayThroughUnicode) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_EQ(fromUnicode(toUnicode(all)), all);
    EXPECT_EQ(toUnicode("\x80\x93"), u"\u20AC\u201C");
}

TEST(Text, WhatTheCodePageLacksBecomesAQuestionMark) {
    EXPECT_EQ(fromUnicode(u"\u0141\u00F3d\u017A"),
              "?\xF3"
              "d?");
    EXPECT_EQ(fromUnicode(u"a\U0001F600b"), "a?b");
}

TEST(Text, PathsKeepFolderNamesThatTheCodePageLacks) {
    const std::string polish = pathFromUnicode(u"/home/\u0142ukasz/");
    EXPECT_EQ(pathToUtf8(polish), "/home/\xC5\x82ukasz/");
    EXPECT_EQ(pathToUnicode(polish), u"/home/\u0142ukasz/");
    // Code page names below such a folder, as order numbers give them, are told apart.
    EXPECT_EQ(pathToUtf8(polish + "\xC9"
                                  "1.htm"),
              "/home/\xC5\x82ukasz/\xC3\x89"
              "1.htm");
    EXPECT_EQ(pathFromUnicode(u"/home/jos\u00E9/"), "/home/jos\xE9/");
    EXPECT_EQ(pathToUtf8("/home/jos\xE9/"), "/home/jos\xC3\xA9/");
}

}  // namespace
}  // namespace bramblet

#include "core/platform/sorting.h"

#include "core/platform/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace bramblet {
namespace {

/// The letters from U+00C0 to U+017F without their accents; "." where one letter stands for two.
constexpr char16_t kFirstAccented = 0xC0;
constexpr std::string_view kBaseLetters =
    "AAAAAA.CEEEEIIIIDNOOOOO\xD7OUUUUY.."
    "AAAAAA.CEEEEIIIIDNOOOOO\xF7OUUUUY.Y"
    "AAAAAACCCCCCCCDDDDEEEEEEEEEEGGGGGGGGHHHHIIIIIIIIIIIIJJKKKLLLLLLL"
    "LLLNNNNNNNNNOOOOOO..RRRRRRSSSSSSSSTTTTTTUUUUUUUUUUUUWWYYYZZZZZZS";
static_assert(kBaseLetters.size() == 0x180 - kFirstAccented);

struct Spelling {
    char16_t letter;
    std::u16string_view base;
};
/// Ligatures, and the accented letters of the other alphabets that code pages have. The accents
/// that Vietnamese writes after a letter are skipped.
constexpr Spelling kSpellings[]{
    {0x00C6, u"AE"},     {0x00E6, u"AE"},     {0x00DE, u"TH"},     {0x00FE, u"TH"},
    {0x00DF, u"SS"},     {0x0152, u"OE"},     {0x0153, u"OE"},     {0x0192, u"F"},
    {0x01A0, u"O"},      {0x01A1, u"O"},      {0x01AF, u"U"},      {0x01B0, u"U"},
    {0x0300, u""},       {0x0301, u""},       {0x0303, u""},       {0x0309, u""},
    {0x0323, u""},       {0x0386, u"\u0391"}, {0x0388, u"\u0395"}, {0x0389, u"\u0397"},
    {0x038A, u"\u0399"}, {0x038C, u"\u039F"}, {0x038E, u"\u03A5"}, {0x038F, u"\u03A9"},
    {0x0390, u"\u0399"}, {0x03AA, u"\u0399"}, {0x03AB, u"\u03A5"}, {0x03B0, u"\u03A5"},
    {0x0401, u"\u0415"},
};

void appendBase(std::string& key, char16_t letter) {
    if (letter < kFirstAccented) return appendUtf8(key, letter);
    const std::size_t place = letter - kFirstAccented;
    if (place < kBaseLetters.size() && kBaseLetters[place] != '.') {
        return appendUtf8(key, static_cast<unsigned char>(kBaseLetters[place]));
    }
    for (const Spelling& spelling : kSpellings) {
        if (spelling.letter != letter) continue;
        for (const char16_t base : spelling.base)
            appendUtf8(key, base);
        return;
    }
    appendUtf8(key, letter);
}

}  // namespace

double leadingNumber(std::string_view text) {
    const auto start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    if (const auto whole = plainNumber(text)) return *whole;
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return std::isfinite(value) ? value : 0;
}

std::string sortKey(std::string text) {
    makeUpper(text);
    const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::all_of(text.begin(), text.end(), isPlain)) return text;
    return sortKey(toUnicode(text));
}

std::string sortKey(std::u16string_view letters) {
    std::string key;
    key.reserve(2 * letters.size() + 1);
    for (const char16_t letter : letters)
        appendBase(key, letter);
    key.push_back('\0');
    for (const char16_t letter : letters)
        appendUtf8(key, letter);
    return key;
}

}  // namespace bramblet

#include "core/platform/sorting.h"

#include "core/platform/text.h"

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

void appendBase(std::u16string& key, char16_t letter) {
    if (letter < kFirstAccented) return key.push_back(letter);
    const std::size_t place = letter - kFirstAccented;
    if (place < kBaseLetters.size() && kBaseLetters[place] != '.') {
        return key.push_back(static_cast<unsigned char>(kBaseLetters[place]));
    }
    for (const Spelling& spelling : kSpellings) {
        if (spelling.letter == letter) {
            key += spelling.base;
            return;
        }
    }
    key.push_back(letter);
}

}  // namespace

double leadingNumber(std::string_view text) {
    const auto start = text.find_first_not_of(' ');
    if (start == std::string_view::npos) return 0;
    text.remove_prefix(start);
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    return std::isfinite(value) ? value : 0;
}

std::u16string sortKey(std::string_view text) {
    return sortKey(toUnicode(upper(text)));
}

std::u16string sortKey(std::u16string_view letters) {
    std::u16string key;
    key.reserve(2 * letters.size() + 1);
    for (const char16_t letter : letters)
        appendBase(key, letter);
    key.push_back(u'\0');
    return key.append(letters);
}

}  // namespace bramblet

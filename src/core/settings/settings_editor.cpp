#include "core/settings/settings_editor.h"

#include "core/platform/amount_text.h"
#include "core/platform/path_text.h"
#include "core/platform/sorting.h"
#include "core/platform/text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

namespace bramblet {
namespace {

/// The width of a text's field in the settings file.
template <auto Field>
constexpr std::size_t kWidth = SettingsView::fieldOf<Field>().width;

/// The text boxes, in the order in which they are stored, with the widths of their fields.
struct TextBox {
    std::string SettingsBoxes::*box;
    std::string Settings::*field;
    std::size_t width;
};
template <auto Box, auto Field>
constexpr TextBox kText{Box, Field, kWidth<Field>};
constexpr std::array kNames{
    kText<&SettingsBoxes::FontNameEd, &Settings::FontName>,
    kText<&SettingsBoxes::TopGraphicEd, &Settings::TopGraphic>,
    kText<&SettingsBoxes::IDText1, &Settings::IDText1>,
    kText<&SettingsBoxes::IDText2, &Settings::IDText2>,
    kText<&SettingsBoxes::IDText3, &Settings::IDText3>,
    kText<&SettingsBoxes::IDText4, &Settings::IDText4>,
    kText<&SettingsBoxes::IDText5, &Settings::IDText5>,
    kText<&SettingsBoxes::DataDirectoryEd, &Settings::DataDirectory>,
    kText<&SettingsBoxes::PrefixEd, &Settings::NumberPrefix>,
};

struct FlagBox {
    bool SettingsBoxes::*box;
    std::string Settings::*field;
};
constexpr std::array kFlags{
    FlagBox{&SettingsBoxes::Option1, &Settings::UseTopGraphic},
    FlagBox{&SettingsBoxes::UseQuantitiesCheck, &Settings::UseQuantities},
    FlagBox{&SettingsBoxes::TaxFreightCheck, &Settings::TaxFreight},
    FlagBox{&SettingsBoxes::RequestForQuoteCheck, &Settings::RequestForQuote},
    FlagBox{&SettingsBoxes::UseReqNumberCheck, &Settings::UseReqNumber},
};

/// A whole number, perhaps with blanks around it; fractions are rounded, halves to even.
std::optional<double> wholeNumber(const std::string& text) {
    const std::string digits = trimmed(text);
    double value = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
    if (digits.empty() || result.ec != std::errc{} || result.ptr != end) return std::nullopt;
    return std::nearbyint(value);
}

bool fits16Bits(double number) {
    return number >= std::numeric_limits<std::int16_t>::min() &&
           number <= std::numeric_limits<std::int16_t>::max();
}

}  // namespace

SettingsEditor::SettingsEditor(const FileSystem& files, Commands& commands, Settings& settings)
    : files_(files.withoutRetry()), commands_(commands), settings_(settings) {}

void SettingsEditor::load() {
    for (const auto& name : kNames) {
        settings_.*name.field = trimmedField(settings_.*name.field);
        boxes.*name.box = settings_.*name.field;
    }
    for (const auto& flag : kFlags)
        boxes.*flag.box = isOn(settings_.*flag.field);
    boxes.WidthEd = settings_.FormWidth;
    for (const NumberBox& box : {kSigLineSpace, kDescriptionLine}) {
        boxes.*box.box = std::to_string(settings_.*box.field);
    }
}

void SettingsEditor::SelectFont_Click() {
    if (const auto name = commands_.prompts().chooseFont(boxes.FontNameEd)) setFont(*name);
}

void SettingsEditor::Option_Click(bool graphic) {
    boxes.Option1 = graphic;
    settings_.UseTopGraphic = flag(graphic);
}

void SettingsEditor::SelectGraphic_Click(const std::filesystem::path& picture) {
    if (picture.empty()) return;
    std::string name;
    const bool copied = commands_.attemptOrAsk(
        "The picture " + shown(picture.filename()) + " could not be copied into the data folder: ",
        "Graphic Selector", [&] {
            name = nameInDataFolder(picture);
            const std::filesystem::path target = commands_.folder().file(name);
            if (!files_.isSameFile(picture, target)) files_.copy(picture, target);
        });
    if (!copied) return;
    boxes.TopGraphicEd = name;
    settings_.TopGraphic = trimmed(name).substr(0, kWidth<&Settings::TopGraphic>);
}

/// The picture's own name, or, if the code page or a document cannot hold it, a plain one that no
/// other file in the data folder has.
std::string SettingsEditor::nameInDataFolder(const std::filesystem::path& picture) const {
    const std::string name = madePlainFileName(fromUnicode(unicodeOf(picture.filename())));
    if (pathOfName(name) == picture.filename()) return name;
    const auto dot = name.rfind('.');
    std::string free = name;
    for (int i = 2; files_.exists(commands_.folder().file(free)); ++i)
        free = name.substr(0, dot) + "-" + std::to_string(i) + name.substr(dot);
    return free;
}

void SettingsEditor::SelectDataDirectory_Click() {
    const auto folder =
        commands_.prompts().chooseFolder("Select a folder...", pathOfFolder(boxes.DataDirectoryEd));
    if (!folder) return;
    const auto text = storableFolder(*folder);
    if (!text) {
        commands_.tell("The name of the folder " + shown(*folder) +
                           " is too long for the settings or no text. Please select another one.",
                       "Configuration", Icon::Exclamation);
        return;
    }
    boxes.DataDirectoryEd = *text;
    commands_.tell(
        "Note - changes to the data path will not take effect until after \"Bramblet\" is "
        "re-started!",
        "Attention");
}

bool SettingsEditor::save() {
    std::int16_t sigLineSpace = 0;
    std::int16_t descriptionLine = 0;
    const bool good = commands_.attemptOrAsk("", "Configuration", [&] {
        sigLineSpace = numberIn(kSigLineSpace);
        descriptionLine = numberIn(kDescriptionLine);
        checkFolder();
    });
    if (!good) return false;
    for (const auto& name : kNames) {
        settings_.*name.field = (boxes.*name.box).substr(0, name.width);
    }
    settings_.FormWidth = boxes.WidthEd.substr(0, kWidth<&Settings::FormWidth>);
    settings_.SigLineSpace = sigLineSpace;
    settings_.DescriptionLineLength = descriptionLine;
    for (const auto& box : kFlags)
        settings_.*box.field = flag(boxes.*box.box);
    return true;
}

void SettingsEditor::stepWidth(int step) {
    setWidth(generalText(leadingNumber(boxes.WidthEd) + step, RegionalFormats{}));
}

void SettingsEditor::setWidth(const std::string& width) {
    boxes.WidthEd = width;
    settings_.FormWidth = width.substr(0, kWidth<&Settings::FormWidth>);
}

void SettingsEditor::stepNumber(const NumberBox& box, int step) {
    const double number = leadingNumber(boxes.*box.box) + step;
    if (fits16Bits(number)) setNumber(box, static_cast<int>(number));
}

void SettingsEditor::setNumber(const NumberBox& box, int number) {
    boxes.*box.box = std::to_string(number);
    settings_.*box.field = static_cast<std::int16_t>(number);
}

void SettingsEditor::setFont(const std::string& name) {
    boxes.FontNameEd = name;
    settings_.FontName = trimmed(name).substr(0, kWidth<&Settings::FontName>);
}

/// A name that was cut off would be another folder's.
void SettingsEditor::checkFolder() const {
    if (boxes.DataDirectoryEd.size() <= kWidth<&Settings::DataDirectory>) return;
    throw BoxFault(FaultNumber::Overflow, "Data Directory",
                   shown(pathOfFolder(boxes.DataDirectoryEd)), "is too long a name");
}

std::int16_t SettingsEditor::numberIn(const NumberBox& box) const {
    const std::string& text = boxes.*box.box;
    const auto number = wholeNumber(text);
    if (!number) throw BoxFault(FaultNumber::TypeMismatch, box.label, text, "is not a number");
    if (!fits16Bits(*number)) {
        throw BoxFault(FaultNumber::Overflow, box.label, text, "is too large a number");
    }
    return static_cast<std::int16_t>(*number);
}

}  // namespace bramblet

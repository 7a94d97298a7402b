// The whole configuration of the program: one record, held in memory throughout the run and stored
// as the single record of the settings file.
#pragma once

#include "core/platform/fixed_record.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace bramblet {

/// 1,719 bytes on disk. Texts have the width of their field as read, or the width assigned; read
/// them through `trimmedField`. A field that was never assigned is all zero bytes.
struct Settings {
    std::int16_t SigLineSpace = 0;           ///< rows above the signature line of the document
    std::int16_t DescriptionLineLength = 0;  ///< characters in description lines
    std::string Reserved1, Reserved2, Reserved3;
    std::string VendorItemsCheck;  ///< "0" or "1", the state of the check box; "Y" when created
    std::string RequisitionMode;   ///< flag: requisition was selected at the last exit
    std::string Spare1, Spare2;
    std::string UseReqNumber;     ///< flag: a request for quote shows the number
    std::string RequestForQuote;  ///< flag: requisitions read "REQUEST FOR QUOTE"
    std::string Reserved4, Reserved5, Reserved6;
    std::string WindowTop, WindowLeft, WindowHeight, WindowWidth;  ///< twips, as decimal text
    std::string FontName;                                          ///< of the order document
    std::string FormWidth;      ///< pixels, as text: the width of the document's outer table
    std::string TopGraphic;     ///< file name, in the data folder
    std::string UseTopGraphic;  ///< flag: the graphic, not the texts, names the company
    std::string IDText1, IDText2, IDText3, IDText4, IDText5;
    double OrdersSavedCount = 0;
    std::string DataDirectory;
    std::string NumberPrefix;
    std::string UseQuantities;  ///< flag: the stock list has its "On Hand" column
    std::string TaxFreight;     ///< flag: shipping charges are taxed
    std::string BackupFolder;
    std::string Spare3;
};

/// The width of the two folder fields.
inline constexpr std::size_t kFolderWidth = 300;

/// The record in file order.
inline constexpr std::array kSettingsLayout{
    numberField<&Settings::SigLineSpace>(0),
    numberField<&Settings::DescriptionLineLength>(2),
    textField<&Settings::Reserved1>(4, 8),
    textField<&Settings::Reserved2>(12, 40),
    textField<&Settings::Reserved3>(52, 100),
    textField<&Settings::VendorItemsCheck>(152, 1),
    textField<&Settings::RequisitionMode>(153, 1),
    textField<&Settings::Spare1>(154, 1),
    textField<&Settings::Spare2>(155, 1),
    textField<&Settings::UseReqNumber>(156, 1),
    textField<&Settings::RequestForQuote>(157, 1),
    textField<&Settings::Reserved4>(158, 8),
    textField<&Settings::Reserved5>(166, 2),
    textField<&Settings::Reserved6>(168, 8),
    textField<&Settings::WindowTop>(176, 5),
    textField<&Settings::WindowLeft>(181, 5),
    textField<&Settings::WindowHeight>(186, 5),
    textField<&Settings::WindowWidth>(191, 5),
    textField<&Settings::FontName>(196, 200),
    textField<&Settings::FormWidth>(396, 3),
    textField<&Settings::TopGraphic>(399, 200),
    textField<&Settings::UseTopGraphic>(599, 1),
    textField<&Settings::IDText1>(600, 60),
    textField<&Settings::IDText2>(660, 60),
    textField<&Settings::IDText3>(720, 60),
    textField<&Settings::IDText4>(780, 60),
    textField<&Settings::IDText5>(840, 60),
    numberField<&Settings::OrdersSavedCount>(900),
    textField<&Settings::DataDirectory>(908, kFolderWidth),
    textField<&Settings::NumberPrefix>(1208, 10),
    textField<&Settings::UseQuantities>(1218, 1),
    textField<&Settings::TaxFreight>(1219, 1),
    textField<&Settings::BackupFolder>(1220, kFolderWidth),
    textField<&Settings::Spare3>(1520, 199),
};
static_assert(recordSize(kSettingsLayout) == 1719);
using SettingsView = RecordView<kSettingsLayout>;

/// Place and size of the main window in twips, 15 to a pixel.
struct WindowPlace {
    double height;
    double width;
    double top;
    double left;
};

/// The content of a new settings file.
Settings defaultSettings(const std::filesystem::path& homeFolder);

/// The default data folder, in the home folder, with a trailing separator.
std::filesystem::path defaultDataDirectory(const std::filesystem::path& homeFolder);

/// A folder as it is stored (path_text.h); nothing if its name is too long or is not text.
std::optional<std::string> storableFolder(const std::filesystem::path& folder);

/// Flags are compared exactly with "Y"; anything else is off.
inline bool isOn(const std::string& flag) {
    return flag == "Y";
}
inline std::string flag(bool on) {
    return on ? "Y" : "N";
}

}  // namespace bramblet

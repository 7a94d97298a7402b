#include "core/settings/settings.h"

#include "core/platform/file_system.h"
#include "core/platform/path_text.h"

namespace bramblet {

std::filesystem::path defaultDataDirectory(const std::filesystem::path& homeFolder) {
    return withSeparator(homeFolder / "po_data");
}

std::optional<std::string> storableFolder(const std::filesystem::path& folder) {
    auto text = folderText(folder);
    if (text && text->size() > kFolderWidth) text.reset();
    return text;
}

Settings defaultSettings(const std::filesystem::path& homeFolder) {
    // A record of zero bytes: what is not assigned below stays zero in the file.
    Settings settings = decodeRecord(kSettingsLayout, "");
    settings.SigLineSpace = 23;
    settings.DescriptionLineLength = 65;
    settings.Reserved3 = "";
    settings.VendorItemsCheck = "Y";
    settings.RequisitionMode = "N";
    settings.Spare1 = "N";
    settings.Spare2 = "Y";
    settings.UseReqNumber = "N";
    settings.RequestForQuote = "Y";
    settings.WindowTop = "1";
    settings.WindowLeft = "1";
    settings.WindowHeight = "7855";
    settings.WindowWidth = "9735";
    settings.FontName = "Arial";
    settings.FormWidth = "640";
    settings.TopGraphic = "po_top.gif";
    settings.UseTopGraphic = "Y";
    settings.IDText1 = "Your Company Name";
    settings.IDText2 = "Address Line 1";
    settings.IDText3 = "Address Line 2";
    settings.IDText4 = "Address Line 3";
    settings.IDText5 = "Maybe phone & fax here?";
    settings.DataDirectory = storableFolder(defaultDataDirectory(homeFolder)).value_or("");
    settings.BackupFolder = settings.DataDirectory;
    settings.Spare3 = "";
    return settings;
}

}  // namespace bramblet

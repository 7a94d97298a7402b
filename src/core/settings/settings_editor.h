// The settings dialog without its window: the boxes, the buttons that take effect at once, and
// Save.
#pragma once

#include "core/settings/commands.h"
#include "core/settings/settings.h"

#include <filesystem>
#include <string>

namespace bramblet {

/// The contents of the boxes, under the names of the controls.
struct SettingsBoxes {
    std::string FontNameEd, TopGraphicEd;
    std::string IDText1, IDText2, IDText3, IDText4, IDText5;
    std::string WidthEd, SigLineSpaceEd, DescriptionLineEd;
    std::string DataDirectoryEd, PrefixEd;
    bool Option1 = false;  ///< the top graphic names the company; else Option2, the texts do
    bool UseQuantitiesCheck = false;
    bool TaxFreightCheck = false;
    bool RequestForQuoteCheck = false;
    bool UseReqNumberCheck = false;
};

class SettingsEditor {
  public:
    SettingsEditor(const FileSystem& files, Commands& commands, Settings& settings);

    SettingsBoxes boxes;

    /// Fills the boxes; to be called when the dialog opens.
    void load();

    // The buttons that take effect at once. None of the steps has a limit except that of 16-bit
    // numbers.
    void WidthLess_Click() { stepWidth(-5); }
    void WidthMore_Click() { stepWidth(5); }
    void WidthDefault_Click() { setWidth("640"); }
    void SigLess_Click() { stepNumber(kSigLineSpace, -1); }
    void SigMore_Click() { stepNumber(kSigLineSpace, 1); }
    void SigLineSpaceDefault_Click() { setNumber(kSigLineSpace, 23); }
    void DesLess_Click() { stepNumber(kDescriptionLine, -5); }
    void DesMore_Click() { stepNumber(kDescriptionLine, 5); }
    void DescriptionSpaceDefault_Click() { setNumber(kDescriptionLine, 65); }
    void DefaultFont_Click() { setFont("Arial"); }
    void SelectFont_Click();
    void Option_Click(bool graphic);
    /// A picture was chosen in the graphic selector, or none if the path is empty: copies it into
    /// the data folder, under a plain name if the settings cannot hold its own.
    void SelectGraphic_Click(const std::filesystem::path& picture);
    void SelectDataDirectory_Click();

    /// "Save": false when a box holds no number or a folder name that is too long, after a message
    /// naming the box; nothing has been stored then.
    bool save();

  private:
    /// A box for a 16-bit number and the setting it edits.
    struct NumberBox {
        std::string SettingsBoxes::*box;
        std::int16_t Settings::*field;
        const char* label;
    };
    static constexpr NumberBox kSigLineSpace{&SettingsBoxes::SigLineSpaceEd,
                                             &Settings::SigLineSpace, "Bottom of form spacing"};
    static constexpr NumberBox kDescriptionLine{&SettingsBoxes::DescriptionLineEd,
                                                &Settings::DescriptionLineLength,
                                                "Characters in description lines"};

    void stepWidth(int step);
    void setWidth(const std::string& width);
    void stepNumber(const NumberBox& box, int step);
    void setNumber(const NumberBox& box, int number);
    std::string nameInDataFolder(const std::filesystem::path& picture) const;
    void setFont(const std::string& name);
    void checkFolder() const;
    std::int16_t numberIn(const NumberBox& box) const;

    FileSystem files_;
    Commands& commands_;
    Settings& settings_;
};

}  // namespace bramblet

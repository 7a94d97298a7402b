// The settings dialog.
#pragma once

#include "core/settings/settings_editor.h"
#include "gui/platform/boxes.h"

#include <QDialog>

class QFormLayout;
class QGroupBox;
class QRadioButton;

namespace bramblet {

class ConfigDialog : public QDialog {
    Q_OBJECT
  public:
    /// `canRewrite` when an order is being viewed.
    ConfigDialog(SettingsEditor& editor, const FileSystem& files,
                 const std::filesystem::path& pictureFolder, bool canRewrite, QWidget* parent);

  signals:
    /// The document in the viewer is to be rewritten with the settings as they are now.
    void ReWrite_Click();

  private:
    using TextField = std::string SettingsBoxes::*;
    using FlagField = bool SettingsBoxes::*;
    using Command = void (SettingsEditor::*)();

    QGroupBox* makeCompany();
    QGroupBox* makeForm();
    QGroupBox* makeOrders();
    QLayout* makeButtons(bool canRewrite);
    QLineEdit* textBox(const char* name, const QString& tip, int limit, TextField field);
    QCheckBox* checkBox(const char* name, const QString& caption, const QString& tip,
                        FlagField field);
    QPushButton* effect(const char* name, const QString& caption, const QString& tip,
                        Command command);
    /// A row for a number, with the buttons that step it and restore its default.
    void addStepper(QFormLayout* form, const QString& label, const char* name, TextField field,
                    const std::array<QPushButton*, 3>& buttons);
    void chooseGraphic();
    void Command1_Click();
    void refresh();

    SettingsEditor& editor_;
    FileSystem files_;
    std::filesystem::path pictureFolder_;
    QRadioButton* useGraphic_;
    QRadioButton* useTexts_;
    QCheckBox* useReqNumber_;
    QLineEdit* folder_;
    BoundBoxes boxes_;
};

}  // namespace bramblet

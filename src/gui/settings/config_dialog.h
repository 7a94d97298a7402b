// The settings dialog.
#pragma once

#include "core/settings/settings_editor.h"

#include <QDialog>

class QCheckBox;
class QFormLayout;
class QGroupBox;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace bramblet {

class ConfigDialog : public QDialog {
    Q_OBJECT
  public:
    ConfigDialog(SettingsEditor& editor, const FileSystem& files,
                 const std::filesystem::path& pictureFolder, QWidget* parent);

  private:
    using TextField = std::string SettingsBoxes::*;
    using FlagField = bool SettingsBoxes::*;
    using Command = void (SettingsEditor::*)();

    QGroupBox* makeCompany();
    QGroupBox* makeForm();
    QGroupBox* makeOrders();
    QLayout* makeButtons();
    QLineEdit* textBox(const char* name, int limit, TextField field);
    QCheckBox* checkBox(const char* name, const QString& caption, FlagField field);
    QPushButton* button(const char* name, const QString& caption, const QString& tip,
                        Command command);
    /// A row for a number, with the buttons that step it and restore its default.
    void addStepper(QFormLayout* form, const QString& label, QLineEdit* box,
                    const std::array<QPushButton*, 3>& buttons);
    void chooseGraphic();
    void refresh();

    SettingsEditor& editor_;
    FileSystem files_;
    std::string pictureFolder_;
    QRadioButton* useGraphic_;
    QRadioButton* useTexts_;
    QCheckBox* useReqNumber_;

    struct BoundText {
        QLineEdit* box;
        TextField field;
    };
    std::vector<BoundText> texts_;
    struct BoundFlag {
        QCheckBox* box;
        FlagField field;
    };
    std::vector<BoundFlag> flags_;
};

}  // namespace bramblet

#include "gui/settings/config_dialog.h"

#include "core/platform/path_text.h"
#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"
#include "gui/settings/picture_dialog.h"

#include <QDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QRadioButton>

#include <array>
#include <functional>

namespace bramblet {
namespace {

class ConfigDialog : public QDialog {
  public:
    ConfigDialog(SettingsEditor& editor, const FileSystem& files,
                 const std::filesystem::path& pictureFolder, const Command& rewrite,
                 QWidget* parent)
        : QDialog(parent), editor_(editor), files_(files), pictureFolder_(pictureFolder) {
        setObjectName(u"TandrilConfigForm"_s);
        setWindowTitle(u"Configuration"_s);
        editor_.load();

        auto* left = column(-1, {makeCompany(), spring()});
        auto* right = column(-1, {makeForm(), makeOrders(), spring()});
        setLayout(column(-1, {grow(row(12, {grow(left), grow(right)})), makeButtons(rewrite)}));
        refresh();
    }

  private:
    using TextField = std::string SettingsBoxes::*;
    using FlagField = bool SettingsBoxes::*;
    using Effect = void (SettingsEditor::*)();

    QGroupBox* makeCompany() {
        auto* group = new QGroupBox(u"Your company on the form"_s);
        useGraphic_ =
            button<QRadioButton>("Option1", u"Use the top &graphic for company identification"_s,
                                 u"The picture stands at the top of the form."_s,
                                 [this] { editor_.Option_Click(true); });
        useTexts_ = button<QRadioButton>("Option2", u"Use &text below for company identification"_s,
                                         u"The text stands at the top of the form."_s,
                                         [this] { editor_.Option_Click(false); });

        auto* graphic =
            textBox("TopGraphicEd", u"Top Graphic"_s, 200, &SettingsBoxes::TopGraphicEd);
        auto* select =
            button("SelectGraphic", u"Se&lect ..."_s, u"Select a graphic file"_s, [this] {
                editor_.SelectGraphic_Click(choosePicture(files_, pictureFolder_, this));
                refresh();
            });
        auto* choice = row(-1, {boxLabel(u"Top Graphic"_s, graphic), grow(graphic), select});
        choice->setContentsMargins(22, 0, 0, 6);

        auto* lines = new QFormLayout;
        lines->setContentsMargins(22, 0, 0, 0);
        const std::array<TextField, 5> fields{&SettingsBoxes::IDText1, &SettingsBoxes::IDText2,
                                              &SettingsBoxes::IDText3, &SettingsBoxes::IDText4,
                                              &SettingsBoxes::IDText5};
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const QString number = QString::number(i + 1);
            const QString label = i == 0 ? u"Line 1 (bold)"_s : u"Line %1"_s.arg(number);
            auto* line = textBox(qPrintable(u"IDText"_s + number), label, 60, fields[i]);
            line->setMinimumWidth(fontMetrics().averageCharWidth() * 34);
            lines->addRow(label, line);
        }
        group->setLayout(column(-1, {useGraphic_, choice, useTexts_, lines}));
        return group;
    }

    QGroupBox* makeForm() {
        auto* group = new QGroupBox(u"The form"_s);
        auto* form = new QFormLayout(group);
        using S = SettingsEditor;
        using B = SettingsBoxes;
        auto* font = textBox("FontNameEd", u"Font"_s, 200, &B::FontNameEd);
        font->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
        form->addRow(
            boxLabel(u"Font"_s, font),
            row(-1,
                {grow(font),
                 effect("SelectFont", u"&Font ..."_s, u"Select a font"_s, &S::SelectFont_Click),
                 effect("DefaultFont", u"Default"_s, u"Default font"_s, &S::DefaultFont_Click)}));
        const QString less = u"-"_s;
        const QString more = u"+"_s;
        const QString usual = u"Default"_s;
        addStepper(form, u"Over-all &width of form"_s, "WidthEd", &B::WidthEd,
                   {effect("WidthLess", less, u"Narrower by 5"_s, &S::WidthLess_Click),
                    effect("WidthMore", more, u"Wider by 5"_s, &S::WidthMore_Click),
                    effect("WidthDefault", usual, u"Default width"_s, &S::WidthDefault_Click)});
        addStepper(form, u"&Bottom of form spacing"_s, "SigLineSpaceEd", &B::SigLineSpaceEd,
                   {effect("SigLess", less, u"One row less"_s, &S::SigLess_Click),
                    effect("SigMore", more, u"One row more"_s, &S::SigMore_Click),
                    effect("SigLineSpaceDefault", usual, u"Default space"_s,
                           &S::SigLineSpaceDefault_Click)});
        addStepper(form, u"&Characters in description lines"_s, "DescriptionLineEd",
                   &B::DescriptionLineEd,
                   {effect("DesLess", less, u"Five characters less"_s, &S::DesLess_Click),
                    effect("DesMore", more, u"Five characters more"_s, &S::DesMore_Click),
                    effect("DescriptionSpaceDefault", usual, u"Default # of characters"_s,
                           &S::DescriptionSpaceDefault_Click)});
        auto* quote =
            checkBox("RequestForQuoteCheck", u"Requisitions read \"REQUEST FOR &QUOTE\""_s,
                     u"What requisitions are headed on paper."_s, &B::RequestForQuoteCheck);
        connect(quote, &QCheckBox::toggled, this, [this] { refresh(); });
        useReqNumber_ =
            checkBox("UseReqNumberCheck", u"Use &No."_s,
                     u"Put the number on a request for quote."_s, &B::UseReqNumberCheck);
        form->addRow(row(-1, {quote, gap(10), useReqNumber_, spring()}));
        return group;
    }

    QGroupBox* makeOrders() {
        auto* group = new QGroupBox(u"Orders and data"_s);
        auto* form = new QFormLayout(group);
        auto* prefix =
            textBox("PrefixEd", u"Bramblet Number Prefix"_s, 10, &SettingsBoxes::PrefixEd);
        form->addRow(boxLabel(u"Bramblet Number &Prefix"_s, prefix),
                     row(-1, {prefix, new QLabel(u"(10 chr. max)"_s), spring()}));
        folder_ = lineEdit("DataDirectoryEd", u"Data Directory"_s, 300);
        connect(folder_, &QLineEdit::textEdited, this, [this](const QString& text) {
            editor_.boxes.DataDirectoryEd = folderText(pathFromQt(text)).value_or("");
        });
        auto* select = effect("SelectDataDirectory", u"Select ..."_s, u"Select a data directory"_s,
                              &SettingsEditor::SelectDataDirectory_Click);
        form->addRow(boxLabel(u"&Data Directory"_s, folder_), row(-1, {grow(folder_), select}));
        form->addRow(checkBox(
            "UseQuantitiesCheck", u"Use \"On &Hand\" column in stock items listing"_s,
            u"Lists how many of each item are in stock."_s, &SettingsBoxes::UseQuantitiesCheck));
        form->addRow(checkBox(
            "TaxFreightCheck", u"Ta&x shipping charges (change requires re-start of program)"_s,
            u"Whether sales tax is due on shipping, too."_s, &SettingsBoxes::TaxFreightCheck));
        return group;
    }

    QLayout* makeButtons(const Command& rewrite) {
        const QString what = u"Rewrite and display with current settings"_s;
        auto* again = button("ReWrite", u"&Rewrite"_s,
                             rewrite ? what : what + u" (when an order is viewed)"_s, rewrite);
        again->setEnabled(rewrite != nullptr);
        auto* save =
            button("Command1", u"&Save"_s, u"Save and exit"_s, [this] { Command1_Click(); });
        save->setDefault(true);
        auto* close =
            button("Close", u"Close"_s,
                   u"Close without saving what was typed; what the buttons changed stays."_s,
                   [this] { reject(); });
        return row(-1, {again, spring(), save, close});
    }

    void Command1_Click() {
        if (editor_.save()) accept();
    }

    QLineEdit* textBox(const char* name, const QString& tip, int limit, TextField field) {
        auto* box = lineEdit(name, tip, limit);
        boxes_.bind(box, editor_.boxes, field);
        return box;
    }

    QCheckBox* checkBox(const char* name, const QString& caption, const QString& tip,
                        FlagField field) {
        auto* box = button<QCheckBox>(name, caption, tip);
        boxes_.bind(box, editor_.boxes, field);
        return box;
    }

    /// A button that takes effect at once.
    QPushButton* effect(const char* name, const QString& caption, const QString& tip,
                        Effect command) {
        auto* button = bramblet::button(name, caption, tip, [this, command] {
            std::invoke(command, editor_);
            refresh();
        });
        button->setAccessibleName(tip);
        return button;
    }

    /// A row for a number, with the buttons that step it and restore its default.
    void addStepper(QFormLayout* form, const QString& label, const char* name, TextField field,
                    const std::array<QPushButton*, 3>& buttons) {
        auto* box = textBox(name, QString(label).remove(QLatin1Char('&')), 0, field);
        box->setAlignment(Qt::AlignRight);
        box->setFixedWidth(fontMetrics().averageCharWidth() * 10);
        const auto [less, more, usual] = buttons;
        for (QPushButton* step : {less, more}) {
            step->setFixedWidth(step->sizeHint().height() + 4);
            step->setAutoRepeat(true);
        }
        form->addRow(boxLabel(label, box), row(-1, {box, less, more, spring(), usual}));
    }

    void refresh() {
        boxes_.refresh();
        showText(folder_, pathToQt(pathOfFolder(editor_.boxes.DataDirectoryEd)));
        (editor_.boxes.Option1 ? useGraphic_ : useTexts_)->setChecked(true);
        useReqNumber_->setEnabled(editor_.boxes.RequestForQuoteCheck);
    }

    SettingsEditor& editor_;
    const FileSystem& files_;
    const std::filesystem::path& pictureFolder_;
    QRadioButton* useGraphic_;
    QRadioButton* useTexts_;
    QCheckBox* useReqNumber_;
    QLineEdit* folder_;
    BoundBoxes boxes_;
};

}  // namespace

void showConfigDialog(SettingsEditor& editor, const FileSystem& files,
                      const std::filesystem::path& pictureFolder,
                      const std::function<void()>& rewrite, QWidget* parent) {
    ConfigDialog(editor, files, pictureFolder, rewrite, parent).exec();
}

}  // namespace bramblet

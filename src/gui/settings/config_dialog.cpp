#include "gui/settings/config_dialog.h"

#include "core/platform/path_text.h"
#include "gui/platform/boxes.h"
#include "gui/platform/literals.h"
#include "gui/platform/qt_text.h"
#include "gui/settings/picture_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

namespace bramblet {

ConfigDialog::ConfigDialog(SettingsEditor& editor, const FileSystem& files,
                           const std::filesystem::path& pictureFolder, QWidget* parent)
    : QDialog(parent), editor_(editor), files_(files), pictureFolder_(pictureFolder) {
    setObjectName(u"TandrilConfigForm"_s);
    setWindowTitle(u"Configuration"_s);
    editor_.load();

    auto* left = new QVBoxLayout;
    left->addWidget(makeCompany());
    left->addStretch(1);
    auto* right = new QVBoxLayout;
    right->addWidget(makeForm());
    right->addWidget(makeOrders());
    right->addStretch(1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(12);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns, 1);
    layout->addLayout(makeButtons());
    refresh();
}

QGroupBox* ConfigDialog::makeCompany() {
    auto* group = new QGroupBox(u"Your company on the form"_s);
    auto* layout = new QVBoxLayout(group);
    useGraphic_ = new QRadioButton(u"Use the top &graphic for company identification"_s);
    useGraphic_->setObjectName(u"Option1"_s);
    useTexts_ = new QRadioButton(u"Use &text below for company identification"_s);
    useTexts_->setObjectName(u"Option2"_s);
    connect(useGraphic_, &QRadioButton::clicked, this, [this] { editor_.Option_Click(true); });
    connect(useTexts_, &QRadioButton::clicked, this, [this] { editor_.Option_Click(false); });

    auto* graphic = textBox("TopGraphicEd", 200, &SettingsBoxes::TopGraphicEd);
    graphic->setToolTip(u"Top Graphic"_s);
    auto* select = button("SelectGraphic", u"Se&lect ..."_s, u"Select a graphic file"_s, nullptr);
    connect(select, &QPushButton::clicked, this, &ConfigDialog::chooseGraphic);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(22, 0, 0, 6);
    row->addWidget(boxLabel(u"Top Graphic"_s, graphic));
    row->addWidget(graphic, 1);
    row->addWidget(select);

    auto* lines = new QFormLayout;
    lines->setContentsMargins(22, 0, 0, 0);
    const std::array<TextField, 5> fields{&SettingsBoxes::IDText1, &SettingsBoxes::IDText2,
                                          &SettingsBoxes::IDText3, &SettingsBoxes::IDText4,
                                          &SettingsBoxes::IDText5};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QString number = QString::number(i + 1);
        auto* line = textBox(qPrintable(u"IDText"_s + number), 60, fields[i]);
        line->setMinimumWidth(fontMetrics().averageCharWidth() * 34);
        const QString label = i == 0 ? u"Line 1 (bold)"_s : u"Line %1"_s.arg(number);
        line->setToolTip(label);
        lines->addRow(label, line);
    }
    layout->addWidget(useGraphic_);
    layout->addLayout(row);
    layout->addWidget(useTexts_);
    layout->addLayout(lines);
    return group;
}

QGroupBox* ConfigDialog::makeForm() {
    auto* group = new QGroupBox(u"The form"_s);
    auto* form = new QFormLayout(group);
    auto* font = textBox("FontNameEd", 200, &SettingsBoxes::FontNameEd);
    font->setToolTip(u"Font"_s);
    font->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
    auto* fontRow = new QHBoxLayout;
    fontRow->addWidget(font, 1);
    fontRow->addWidget(button("SelectFont", u"&Font ..."_s, u"Select a font"_s,
                              &SettingsEditor::SelectFont_Click));
    fontRow->addWidget(
        button("DefaultFont", u"Default"_s, u"Default font"_s, &SettingsEditor::DefaultFont_Click));
    form->addRow(boxLabel(u"Font"_s, font), fontRow);
    using S = SettingsEditor;
    const QString less = u"-"_s;
    const QString more = u"+"_s;
    const QString usual = u"Default"_s;
    addStepper(form, u"Over-all &width of form"_s, textBox("WidthEd", 0, &SettingsBoxes::WidthEd),
               {button("WidthLess", less, u"Narrower by 5"_s, &S::WidthLess_Click),
                button("WidthMore", more, u"Wider by 5"_s, &S::WidthMore_Click),
                button("WidthDefault", usual, u"Default width"_s, &S::WidthDefault_Click)});
    addStepper(
        form, u"&Bottom of form spacing"_s,
        textBox("SigLineSpaceEd", 0, &SettingsBoxes::SigLineSpaceEd),
        {button("SigLess", less, u"One row less"_s, &S::SigLess_Click),
         button("SigMore", more, u"One row more"_s, &S::SigMore_Click),
         button("SigLineSpaceDefault", usual, u"Default space"_s, &S::SigLineSpaceDefault_Click)});
    addStepper(form, u"&Characters in description lines"_s,
               textBox("DescriptionLineEd", 0, &SettingsBoxes::DescriptionLineEd),
               {button("DesLess", less, u"Five characters less"_s, &S::DesLess_Click),
                button("DesMore", more, u"Five characters more"_s, &S::DesMore_Click),
                button("DescriptionSpaceDefault", usual, u"Default # of characters"_s,
                       &S::DescriptionSpaceDefault_Click)});
    auto* quote = checkBox("RequestForQuoteCheck", u"Requisitions read \"REQUEST FOR &QUOTE\""_s,
                           &SettingsBoxes::RequestForQuoteCheck);
    connect(quote, &QCheckBox::toggled, this, [this] { refresh(); });
    useReqNumber_ = checkBox("UseReqNumberCheck", u"Use &No."_s, &SettingsBoxes::UseReqNumberCheck);
    useReqNumber_->setToolTip(u"Put the number on a request for quote."_s);
    auto* quoteRow = new QHBoxLayout;
    quoteRow->addWidget(quote);
    quoteRow->addSpacing(10);
    quoteRow->addWidget(useReqNumber_);
    quoteRow->addStretch(1);
    form->addRow(quoteRow);
    return group;
}

QGroupBox* ConfigDialog::makeOrders() {
    auto* group = new QGroupBox(u"Orders and data"_s);
    auto* form = new QFormLayout(group);
    auto* prefix = textBox("PrefixEd", 10, &SettingsBoxes::PrefixEd);
    prefix->setToolTip(u"Bramblet Number Prefix"_s);
    auto* prefixRow = new QHBoxLayout;
    prefixRow->addWidget(prefix);
    prefixRow->addWidget(new QLabel(u"(10 chr. max)"_s));
    prefixRow->addStretch(1);
    form->addRow(boxLabel(u"Bramblet Number &Prefix"_s, prefix), prefixRow);
    auto* folder = textBox("DataDirectoryEd", 300, &SettingsBoxes::DataDirectoryEd);
    folder->setToolTip(u"Data Directory"_s);
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(folder, 1);
    folderRow->addWidget(button("SelectDataDirectory", u"Select ..."_s,
                                u"Select a data directory"_s,
                                &SettingsEditor::SelectDataDirectory_Click));
    form->addRow(boxLabel(u"&Data Directory"_s, folder), folderRow);
    form->addRow(checkBox("UseQuantitiesCheck", u"Use \"On &Hand\" column in stock items listing"_s,
                          &SettingsBoxes::UseQuantitiesCheck));
    form->addRow(checkBox("TaxFreightCheck",
                          u"Ta&x shipping charges (change requires re-start of program)"_s,
                          &SettingsBoxes::TaxFreightCheck));
    return group;
}

QLayout* ConfigDialog::makeButtons() {
    auto* rewrite = button("ReWrite", u"&Rewrite"_s, u"Rewrite and display with current settings"_s,
                           &SettingsEditor::ReWrite_Click);
    rewrite->setEnabled(editor_.ReWriteAllowed());
    if (!editor_.ReWriteAllowed()) {
        rewrite->setToolTip(
            u"Rewrite and display with current settings (when an order is viewed)"_s);
    }
    auto* save = button("Command1", u"&Save"_s, u"Save and exit"_s, nullptr);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, [this] {
        if (editor_.Command1_Click()) accept();
    });
    auto* close =
        button("Close", u"Close"_s,
               u"Close without saving what was typed; what the buttons changed stays."_s, nullptr);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto* row = new QHBoxLayout;
    row->addWidget(rewrite);
    row->addStretch(1);
    row->addWidget(save);
    row->addWidget(close);
    return row;
}

QLineEdit* ConfigDialog::textBox(const char* name, int limit, TextField field) {
    auto* box = new QLineEdit;
    box->setObjectName(QLatin1String(name));
    if (limit > 0) box->setMaxLength(limit);
    texts_.push_back({box, field});
    connect(box, &QLineEdit::textEdited, this, [this, field](const QString& text) {
        const bool path = field == &SettingsBoxes::DataDirectoryEd;
        editor_.boxes.*field = path ? folderText(pathFromQt(text)).value_or("") : fromQt(text);
    });
    return box;
}

QCheckBox* ConfigDialog::checkBox(const char* name, const QString& caption, FlagField field) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(QLatin1String(name));
    flags_.push_back({box, field});
    connect(box, &QCheckBox::toggled, this,
            [this, field](bool checked) { editor_.boxes.*field = checked; });
    return box;
}

QPushButton* ConfigDialog::button(const char* name, const QString& caption, const QString& tip,
                                  Command command) {
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setAutoDefault(false);
    if (command != nullptr) {
        connect(button, &QPushButton::clicked, this, [this, command] {
            std::invoke(command, editor_);
            refresh();
        });
    }
    return button;
}

void ConfigDialog::addStepper(QFormLayout* form, const QString& label, QLineEdit* box,
                              const std::array<QPushButton*, 3>& buttons) {
    box->setAlignment(Qt::AlignRight);
    box->setFixedWidth(fontMetrics().averageCharWidth() * 10);
    box->setToolTip(QString(label).remove(QLatin1Char('&')));
    auto* row = new QHBoxLayout;
    row->addWidget(box);
    for (QPushButton* step : {buttons[0], buttons[1]}) {
        step->setFixedWidth(step->sizeHint().height() + 4);
        step->setAutoRepeat(true);
        row->addWidget(step);
    }
    row->addStretch(1);
    row->addWidget(buttons[2]);
    form->addRow(boxLabel(label, box), row);
}

void ConfigDialog::chooseGraphic() {
    PictureDialog chooser(files_, pictureFolder_, this);
    chooser.exec();
    editor_.SelectGraphic_Click(chooser.path());
    refresh();
}

void ConfigDialog::refresh() {
    for (const auto& text : texts_) {
        const std::string& value = editor_.boxes.*text.field;
        if (text.field == &SettingsBoxes::DataDirectoryEd) {
            showPath(text.box, pathOfFolder(value));
        } else {
            showText(text.box, value);
        }
    }
    for (const auto& flag : flags_)
        flag.box->setChecked(editor_.boxes.*flag.field);
    (editor_.boxes.Option1 ? useGraphic_ : useTexts_)->setChecked(true);
    useReqNumber_->setEnabled(editor_.boxes.RequestForQuoteCheck);
}

}  // namespace bramblet

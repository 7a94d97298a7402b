#include "gui/settings/config_dialog.h"

#include "core/platform/path_text.h"
#include "gui/platform/boxes.h"
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
    setObjectName(QStringLiteral("TandrilConfigForm"));
    setWindowTitle(tr("Configuration"));
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
    auto* group = new QGroupBox(tr("Your company on the form"));
    auto* layout = new QVBoxLayout(group);
    useGraphic_ = new QRadioButton(tr("Use the top &graphic for company identification"));
    useGraphic_->setObjectName(QStringLiteral("Option1"));
    useTexts_ = new QRadioButton(tr("Use &text below for company identification"));
    useTexts_->setObjectName(QStringLiteral("Option2"));
    connect(useGraphic_, &QRadioButton::clicked, this, [this] { editor_.Option_Click(true); });
    connect(useTexts_, &QRadioButton::clicked, this, [this] { editor_.Option_Click(false); });

    auto* graphic = textBox("TopGraphicEd", 200, &SettingsBoxes::TopGraphicEd);
    graphic->setToolTip(tr("Top Graphic"));
    auto* select = button("SelectGraphic", tr("Se&lect ..."), tr("Select a graphic file"), nullptr);
    connect(select, &QPushButton::clicked, this, &ConfigDialog::chooseGraphic);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(22, 0, 0, 6);
    row->addWidget(boxLabel(tr("Top Graphic"), graphic));
    row->addWidget(graphic, 1);
    row->addWidget(select);

    auto* lines = new QFormLayout;
    lines->setContentsMargins(22, 0, 0, 0);
    const std::array<TextField, 5> fields{&SettingsBoxes::IDText1, &SettingsBoxes::IDText2,
                                          &SettingsBoxes::IDText3, &SettingsBoxes::IDText4,
                                          &SettingsBoxes::IDText5};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QString number = QString::number(i + 1);
        auto* line = textBox(qPrintable(QStringLiteral("IDText") + number), 60, fields[i]);
        line->setMinimumWidth(fontMetrics().averageCharWidth() * 34);
        const QString label = i == 0 ? tr("Line 1 (bold)") : tr("Line %1").arg(number);
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
    auto* group = new QGroupBox(tr("The form"));
    auto* form = new QFormLayout(group);
    auto* font = textBox("FontNameEd", 200, &SettingsBoxes::FontNameEd);
    font->setToolTip(tr("Font"));
    font->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
    auto* fontRow = new QHBoxLayout;
    fontRow->addWidget(font, 1);
    fontRow->addWidget(button("SelectFont", tr("&Font ..."), tr("Select a font"),
                              &SettingsEditor::SelectFont_Click));
    fontRow->addWidget(button("DefaultFont", tr("Default"), tr("Default font"),
                              &SettingsEditor::DefaultFont_Click));
    form->addRow(boxLabel(tr("Font"), font), fontRow);
    using S = SettingsEditor;
    const QString less = tr("-");
    const QString more = tr("+");
    const QString usual = tr("Default");
    addStepper(form, tr("Over-all &width of form"), textBox("WidthEd", 0, &SettingsBoxes::WidthEd),
               {button("WidthLess", less, tr("Narrower by 5"), &S::WidthLess_Click),
                button("WidthMore", more, tr("Wider by 5"), &S::WidthMore_Click),
                button("WidthDefault", usual, tr("Default width"), &S::WidthDefault_Click)});
    addStepper(
        form, tr("&Bottom of form spacing"),
        textBox("SigLineSpaceEd", 0, &SettingsBoxes::SigLineSpaceEd),
        {button("SigLess", less, tr("One row less"), &S::SigLess_Click),
         button("SigMore", more, tr("One row more"), &S::SigMore_Click),
         button("SigLineSpaceDefault", usual, tr("Default space"), &S::SigLineSpaceDefault_Click)});
    addStepper(form, tr("&Characters in description lines"),
               textBox("DescriptionLineEd", 0, &SettingsBoxes::DescriptionLineEd),
               {button("DesLess", less, tr("Five characters less"), &S::DesLess_Click),
                button("DesMore", more, tr("Five characters more"), &S::DesMore_Click),
                button("DescriptionSpaceDefault", usual, tr("Default # of characters"),
                       &S::DescriptionSpaceDefault_Click)});
    auto* quote = checkBox("RequestForQuoteCheck", tr("Requisitions read \"REQUEST FOR &QUOTE\""),
                           &SettingsBoxes::RequestForQuoteCheck);
    connect(quote, &QCheckBox::toggled, this, [this] { refresh(); });
    useReqNumber_ =
        checkBox("UseReqNumberCheck", tr("Use &No."), &SettingsBoxes::UseReqNumberCheck);
    useReqNumber_->setToolTip(tr("Put the number on a request for quote."));
    auto* quoteRow = new QHBoxLayout;
    quoteRow->addWidget(quote);
    quoteRow->addSpacing(10);
    quoteRow->addWidget(useReqNumber_);
    quoteRow->addStretch(1);
    form->addRow(quoteRow);
    return group;
}

QGroupBox* ConfigDialog::makeOrders() {
    auto* group = new QGroupBox(tr("Orders and data"));
    auto* form = new QFormLayout(group);
    auto* prefix = textBox("PrefixEd", 10, &SettingsBoxes::PrefixEd);
    prefix->setToolTip(tr("Bramblet Number Prefix"));
    auto* prefixRow = new QHBoxLayout;
    prefixRow->addWidget(prefix);
    prefixRow->addWidget(new QLabel(tr("(10 chr. max)")));
    prefixRow->addStretch(1);
    form->addRow(boxLabel(tr("Bramblet Number &Prefix"), prefix), prefixRow);
    auto* folder = textBox("DataDirectoryEd", 300, &SettingsBoxes::DataDirectoryEd);
    folder->setToolTip(tr("Data Directory"));
    auto* folderRow = new QHBoxLayout;
    folderRow->addWidget(folder, 1);
    folderRow->addWidget(button("SelectDataDirectory", tr("Select ..."),
                                tr("Select a data directory"),
                                &SettingsEditor::SelectDataDirectory_Click));
    form->addRow(boxLabel(tr("&Data Directory"), folder), folderRow);
    form->addRow(checkBox("UseQuantitiesCheck",
                          tr("Use \"On &Hand\" column in stock items listing"),
                          &SettingsBoxes::UseQuantitiesCheck));
    form->addRow(checkBox("TaxFreightCheck",
                          tr("Ta&x shipping charges (change requires re-start of program)"),
                          &SettingsBoxes::TaxFreightCheck));
    return group;
}

QLayout* ConfigDialog::makeButtons() {
    auto* rewrite =
        button("ReWrite", tr("&Rewrite"), tr("Rewrite and display with current settings"),
               &SettingsEditor::ReWrite_Click);
    rewrite->setEnabled(editor_.ReWriteAllowed());
    if (!editor_.ReWriteAllowed()) {
        rewrite->setToolTip(
            tr("Rewrite and display with current settings (when an order is viewed)"));
    }
    auto* save = button("Command1", tr("&Save"), tr("Save and exit"), nullptr);
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, [this] {
        if (editor_.Command1_Click()) accept();
    });
    auto* close =
        button("Close", tr("Close"),
               tr("Close without saving what was typed; what the buttons changed stays."), nullptr);
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

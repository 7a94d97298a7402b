#include "gui/backup/backup_dialog.h"

#include "gui/platform/qt_text.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QListView>
#include <QLocale>
#include <QProgressBar>
#include <QStackedWidget>
#include <QStringListModel>
#include <QTimer>

namespace bramblet {
namespace {

constexpr int kShowEvery = 40;  // milliseconds
constexpr int kBarSteps = 1000;
constexpr int kBarHeight = 8;

/// Stands in for the file list during a run.
QLabel* runningNote(const QString& text) {
    auto* note = new QLabel(text);
    note->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    note->setAlignment(Qt::AlignCenter);
    note->setBackgroundRole(QPalette::Base);
    note->setForegroundRole(QPalette::PlaceholderText);
    note->setAutoFillBackground(true);
    return note;
}

QString sizeText(std::uint64_t bytes) {
    return QLocale().formattedDataSize(static_cast<qint64>(bytes), 1,
                                       QLocale::DataSizeTraditionalFormat);
}

}  // namespace

BackupDialog::BackupDialog(Backup& backup, QWidget* parent) : QDialog(parent), backup_(backup) {
    const bool restoring = backup.kind() == Backup::Kind::Restore;
    setObjectName(restoring ? u"TandrilfrmRestore"_s : u"TandrilfrmBackup"_s);
    setWindowTitle(restoring ? u"Restore Data"_s : u"Back Up Data"_s);

    names_ = new QStringListModel(this);
    list_ = new QListView;
    list_->setObjectName(u"BackMeUp"_s);
    list_->setAccessibleName(u"Files to be copied"_s);
    list_->setToolTip(u"The data files, the orders and the pictures of the folder."_s);
    list_->setModel(names_);
    list_->setUniformItemSizes(true);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    files_ = new QStackedWidget;
    files_->addWidget(list_);
    files_->addWidget(runningNote(u"Stop ends this before the next file."_s));
    progressText_ = namedLabel("BackUpProgress");
    progressText_->setWordWrap(true);
    counts_ = namedLabel("BackUpCounts");
    counts_->setAlignment(Qt::AlignRight);
    bar_ = new QProgressBar;
    bar_->setObjectName(u"BackUpBar"_s);
    bar_->setAccessibleName(u"Progress"_s);
    bar_->setRange(0, kBarSteps);
    bar_->setTextVisible(false);  // the counts stand above it
    bar_->setFixedHeight(kBarHeight);
    QSizePolicy keepsPlace = bar_->sizePolicy();
    keepsPlace.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(keepsPlace);

    setLayout(column(8, {makeFolders(), makeWarning(), makeChoices(), grow(files_),
                         row(-1, {grow(progressText_), counts_}), bar_, makeButtons()}));
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().lineSpacing() * 28);

    refresh();
    QTimer::singleShot(0, this, [this] {
        backup_.list();
        run_->setFocus();  // which it loses while it is disabled
    });
}

void BackupDialog::reject() {
    backup_.StopBackup_Click();
    QDialog::reject();
}

/// A button that cannot be used during a run.
QPushButton* BackupDialog::idleButton(const char* name, const QString& caption, const QString& tip,
                                      const Command& command) {
    auto* idle = button(name, caption, tip, [this, command] {
        command();
        refresh();
    });
    idleControls_.push_back(idle);
    return idle;
}

QLayout* BackupDialog::makeFolders() {
    const bool restoring = backup_.kind() == Backup::Kind::Restore;
    source_ = elidedLabel("Backuplist", Qt::ElideMiddle);
    target_ = lineEdit("BackUpTarget", u"The folder that is copied to; it may be typed."_s);
    target_->setAccessibleName(u"Target folder"_s);
    connect(target_, &QLineEdit::textEdited, this,
            [this](const QString& text) { backup_.BackUpTarget = pathFromQt(text); });
    idleControls_.push_back(target_);

    auto* grid = new QGridLayout;
    grid->setColumnStretch(1, 1);
    grid->addWidget(new QLabel(u"From"_s), 0, 0);
    grid->addWidget(source_, 0, 1);
    grid->addWidget(boxLabel(u"&To"_s, target_), 1, 0);
    grid->addWidget(target_, 1, 1);
    if (restoring) {
        grid->addWidget(idleButton("SelectSource", u"Select S&ource ..."_s,
                                   u"Choose the folder to copy from."_s,
                                   [this] { backup_.SelectSource_Click(); }),
                        0, 2);
    }
    grid->addWidget(
        idleButton("SelectTarget", u"&Select Target ..."_s,
                   u"Choose the folder to copy to; it is remembered as the backup folder."_s,
                   [this] { backup_.SelectTarget_Click(); }),
        1, 2);
    return grid;
}

/// What is missing in a source, with the way to what may be meant instead.
QLayout* BackupDialog::makeWarning() {
    warning_ = namedLabel("BackUpWarning");
    warning_->setWordWrap(true);
    takeNewest_ = idleButton("TakeNewest", u"&Use It"_s, u"Go on to the newest backup."_s,
                             [this] { backup_.TakeNewest_Click(); });
    return row(-1, {grow(warning_), takeNewest_});
}

QLayout* BackupDialog::makeChoices() {
    const bool restoring = backup_.kind() == Backup::Kind::Restore;
    auto* settings = button<QCheckBox>(
        "BackUpSettings", u"With the settin&gs"_s,
        restoring ? u"Take over the settings of the backup as well, except for its folders."_s
                  : u"Copy the settings as well, which are not in the data folder."_s);
    settings->setChecked(backup_.withSettings());
    connect(settings, &QCheckBox::toggled, this, [this](bool along) {
        backup_.takeSettingsAlong(along);
        refresh();
    });
    idleControls_.push_back(settings);
    if (restoring) return row(-1, {settings, spring()});
    auto* dated = button<QCheckBox>(
        "BackUpDated", u"Into a new folder with the &date"_s,
        u"Keep earlier backups: each goes into a folder of its own in the target."_s);
    dated->setChecked(backup_.dated);
    connect(dated, &QCheckBox::toggled, this, [this](bool on) { backup_.dated = on; });
    idleControls_.push_back(dated);
    return row(16, {dated, settings, spring()});
}

QLayout* BackupDialog::makeButtons() {
    const bool restoring = backup_.kind() == Backup::Kind::Restore;
    run_ = idleButton("RunBackup", restoring ? u"&Restore"_s : u"&Back Up"_s,
                      restoring ? u"Copy the files over those of the target folder."_s
                                : u"Copy the files to the target folder."_s,
                      [this] { backup_.RunBackup_Click(); });
    stop_ = button("StopBackup", {}, {}, [this] { reject(); });
    auto* verify = idleButton("Verify", u"&Verify"_s,
                              u"Compare every file with its copy in the target folder."_s,
                              [this] { backup_.Verify_Click(); });
    return row(-1, {run_, verify, spring(), stop_});
}

/// Shows what the core holds.
void BackupDialog::refresh() {
    const bool running = backup_.running();
    const Backup::Progress& progress = backup_.progress();
    source_->setText(pathToQt(backup_.Backuplist));
    showText(target_, pathToQt(backup_.BackUpTarget));
    if (running) {
        list_->setCurrentIndex(names_->index(static_cast<int>(progress.files)));
    } else {
        showNames();
    }
    warning_->setText(messageToQt(backup_.warning));
    warning_->setVisible(!backup_.warning.empty());
    takeNewest_->setVisible(backup_.hasNewest());
    files_->setCurrentIndex(running ? 1 : 0);
    progressText_->setText(messageToQt(backup_.BackUpProgress));
    const bool begun = progress.fileCount > 0;
    counts_->setVisible(begun);
    counts_->setText(u"%1 of %2 files, %3 of %4"_s.arg(progress.files)
                         .arg(progress.fileCount)
                         .arg(sizeText(progress.bytes), sizeText(progress.byteCount)));
    bar_->setVisible(begun);
    const auto whole = static_cast<double>(qMax(progress.byteCount, std::uint64_t{1}));
    bar_->setValue(static_cast<int>(static_cast<double>(progress.bytes) / whole * kBarSteps));
    for (QWidget* control : idleControls_)
        control->setEnabled(!running);
    stop_->setText(running ? u"Stop"_s : u"Close"_s);
    stop_->setToolTip(running ? u"Stop before the next file and close this window."_s
                              : u"Close this window."_s);
    lastShown_.restart();
}

void BackupDialog::showNames() {
    QStringList names;
    for (const auto& name : backup_.BackMeUp)
        names.append(pathToQt(name));
    if (names != names_->stringList()) names_->setStringList(names);
    if (!list_->currentIndex().isValid()) return;
    // After a run, no file is the current one.
    list_->setCurrentIndex({});
    list_->scrollToTop();
}

/// During a run the window is repainted only now and then. It takes clicks before every file that
/// is copied or compared, and now and then while the files are being listed and counted.
void BackupDialog::showProgress() {
    const bool began = run_->isEnabled();
    const bool due = lastShown_.elapsed() >= kShowEvery;
    const bool counting = backup_.progress().fileCount == 0;
    if (!backup_.running() || began || due) refresh();
    if (!counting || due) QCoreApplication::processEvents();
}

}  // namespace bramblet

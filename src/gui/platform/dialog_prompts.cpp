#include "gui/platform/dialog_prompts.h"

#include "core/platform/file_system.h"
#include "core/platform/path_text.h"
#include "gui/platform/boxes.h"
#include "gui/platform/qt_text.h"

#include <QApplication>
#include <QFileDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>

#include <map>

namespace bramblet {
namespace {

const std::map<Icon, QMessageBox::Icon> kIcons{
    {Icon::None, QMessageBox::NoIcon},       {Icon::Information, QMessageBox::Information},
    {Icon::Question, QMessageBox::Question}, {Icon::Exclamation, QMessageBox::Warning},
    {Icon::Stop, QMessageBox::Critical},
};

const std::map<Answer, QMessageBox::StandardButton> kButtons{
    {Answer::Ok, QMessageBox::Ok},       {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Yes, QMessageBox::Yes},     {Answer::No, QMessageBox::No},
    {Answer::Retry, QMessageBox::Retry}, {Answer::Ignore, QMessageBox::Ignore},
    {Answer::Close, QMessageBox::Close},
};

/// The answers that a set of buttons offers, in order; the first is the default.
const std::map<Buttons, std::vector<Answer>> kAnswers{
    {Buttons::Ok, {Answer::Ok}},
    {Buttons::OkCancel, {Answer::Ok, Answer::Cancel}},
    {Buttons::YesNo, {Answer::Yes, Answer::No}},
    {Buttons::YesNoCancel, {Answer::Yes, Answer::No, Answer::Cancel}},
    {Buttons::RetryClose, {Answer::Retry, Answer::Close}},
    {Buttons::RetryIgnoreClose, {Answer::Retry, Answer::Ignore, Answer::Close}},
};

QStringList filtersOf(const FileChoice& choice) {
    QStringList filters;
    for (const auto& filter : choice.filters) {
        // Some names already include their pattern, and not every file has a dot.
        const QString name = toQt(filter.name).section(QLatin1Char('('), 0, 0).trimmed();
        const QString pattern = filter.pattern == "*.*" ? u"*"_s : toQt(filter.pattern);
        filters.append(u"%1 (%2)"_s.arg(name, pattern));
    }
    return filters;
}

/// "*.sid" gives "sid"; a pattern for all files gives no suffix.
QString suffixOf(const FileChoice& choice) {
    if (choice.filters.empty()) return {};
    const QString suffix = toQt(choice.filters.front().pattern).section(QLatin1Char('.'), -1);
    return suffix.contains(QLatin1Char('*')) ? QString() : suffix.toLower();
}

}  // namespace

Answer DialogPrompts::ask(const Message& message) {
    const std::vector<Answer>& answers = kAnswers.at(message.buttons);
    QMessageBox box(kIcons.at(message.icon), messageToQt(message.title), messageToQt(message.text),
                    QMessageBox::NoButton, parent());
    box.setTextFormat(Qt::PlainText);
    for (const Answer answer : answers)
        box.addButton(kButtons.at(answer));
    box.setDefaultButton(kButtons.at(message.preset.value_or(answers.front())));
    box.exec();
    const auto pressed = box.standardButton(box.clickedButton());
    for (const Answer answer : answers) {
        if (kButtons.at(answer) == pressed) return answer;
    }
    return answers.back();
}

std::optional<std::string> DialogPrompts::input(const std::string& prompt, const std::string& title,
                                                const std::string& preset) {
    bool accepted = false;
    const QString text = QInputDialog::getText(parent(), toQt(title), linesToQt(prompt),
                                               QLineEdit::Normal, toQt(preset), &accepted);
    if (!accepted) return std::nullopt;
    return fromQt(text);
}

std::optional<std::filesystem::path> DialogPrompts::chooseFolder(
    const std::string& title, const std::filesystem::path& start) {
    auto folder = pathOf(choose({title, start, {}, {}}, Purpose::Folder));
    if (folder) folder = withSeparator(*folder);
    return folder;
}

std::optional<std::string> DialogPrompts::chooseFont(const std::string& current) {
    bool accepted = false;
    const QFont font =
        QFontDialog::getFont(&accepted, QFont(toQt(current)), parent(), u"Select a font"_s);
    if (!accepted) return std::nullopt;
    return fromQt(font.family());
}

void DialogPrompts::progress(const std::string& what, int done, int total) {
    if (done >= total) {
        progress_.reset();
        return;
    }
    if (!progress_) {
        openProgress(what);
        progress_->setCancelButton(nullptr);
        // Work under way cannot be left half done.
        progress_->setWindowFlag(Qt::WindowCloseButtonHint, false);
    }
    progress_->setMaximum(total);
    progress_->setValue(done);
}

bool DialogPrompts::mayGoOn(const std::string& what, int done, int total) {
    constexpr int kShowEvery = 40;  // milliseconds
    if (!progress_) {
        openProgress(what);
        progress_->setCancelButton(
            button("StopProgress", u"Stop"_s, u"Stop here; nothing is changed."_s));
    } else if (lastShown_.elapsed() < kShowEvery) {
        return true;
    }
    lastShown_.restart();
    progress_->setMaximum(total);
    progress_->setValue(done);
    // Until there is a dialog in front of them, the windows show themselves but take no input.
    QCoreApplication::processEvents(progress_->isVisible() ? QEventLoop::AllEvents
                                                           : QEventLoop::ExcludeUserInputEvents);
    return !progress_->wasCanceled();
}

void DialogPrompts::openProgress(const std::string& what) {
    progress_ = std::make_unique<QProgressDialog>(parent());
    progress_->setLabelText(messageToQt(what));
    progress_->setWindowModality(Qt::WindowModal);
    progress_->setMinimumDuration(700);
    progress_->setWindowTitle(u"Bramblet"_s);
}

std::optional<ChosenFile> DialogPrompts::choose(const FileChoice& choice, Purpose purpose) {
    QFileDialog dialog(parent(), messageToQt(choice.title), pathToQt(choice.folder));
    dialog.setFileMode(purpose == Purpose::Open   ? QFileDialog::ExistingFile
                       : purpose == Purpose::Save ? QFileDialog::AnyFile
                                                  : QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly, purpose == Purpose::Folder);
    if (purpose == Purpose::Save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        // The caller asks whether to replace a file.
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.setDefaultSuffix(suffixOf(choice));
    }
    const QStringList filters = filtersOf(choice);
    if (!filters.isEmpty()) dialog.setNameFilters(filters);
    if (!choice.name.empty()) dialog.selectFile(pathToQt(pathOfName(choice.name)));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    const qsizetype filter = filters.indexOf(dialog.selectedNameFilter());
    return ChosenFile{pathFromQt(dialog.selectedFiles().constFirst()),
                      static_cast<std::size_t>(qMax<qsizetype>(filter, 0))};
}

QWidget* DialogPrompts::parent() const {
    QWidget* const active = QApplication::activeModalWidget();
    return active != nullptr ? active : parent_.data();
}

}  // namespace bramblet

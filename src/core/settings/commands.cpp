#include "core/settings/commands.h"

#include "core/platform/fault.h"

#include <algorithm>
#include <utility>

namespace bramblet {

void Commands::setScreen(Screen* screen) {
    screen_ = screen != nullptr ? screen : &noScreen_;
    changed_ = {true, true, true, true};
    showChanges();
}

void Commands::run(const Body& body) {
    if (!running()) screen_->showStatus({}, Tone::Done);  // what was said before is no longer news
    perform(body);
}

void Commands::onData(const Body& body) {
    run([&] {
        if (folder_.available(prompts_)) body();
    });
}

void Commands::edit(const Body& body) {
    perform(body);
}

void Commands::perform(const Body& body) {
    if (!running()) showCaption(kUsualCaption);
    ++depth_;
    try {
        body();
    } catch (...) {
        window_ = nullptr;
        end();
        throw;
    }
    end();
}

void Commands::end() {
    if (--depth_ > 0) return;
    showChanges();
    showCollected();
    if (const auto window = std::exchange(window_, nullptr)) (screen_->*window)();
}

bool Commands::attempt(const std::string& failure, const Body& step, Loss loss) {
    try {
        step();
        return true;
    } catch (const Fault& fault) {
        say(failure + fault.inWords(), loss);
        return false;
    }
}

bool Commands::attemptOrAsk(const std::string& failure, const std::string& title, const Body& step,
                            Icon icon) {
    try {
        step();
        return true;
    } catch (const Fault& fault) {
        tell(failure + fault.inWords() + ".", title, icon);
        return false;
    }
}

void Commands::say(const std::string& failure, Loss loss) {
    const std::string sentence = failure + (failure.ends_with('.') ? "" : ".");
    const bool said = std::any_of(failures_.begin(), failures_.end(),
                                  [&](const auto& entry) { return entry.second == sentence; });
    if (!said) failures_.emplace(loss, sentence);
    if (!running()) showCollected();
}

void Commands::sayDone(const std::string& line) {
    done_ = line;
    if (!running()) showCollected();
}

std::string Commands::takeFailures() {
    std::string line;
    for (const auto& [loss, sentence] : failures_)
        line += (line.empty() ? "" : " ") + sentence;
    failures_.clear();
    return line;
}

void Commands::showCollected() {
    std::string line = takeFailures();
    const Tone tone = line.empty() ? Tone::Done : Tone::Failure;
    line += (line.empty() || done_.empty() ? "" : " ") + done_;
    done_.clear();
    if (!line.empty()) screen_->showStatus(line, tone);
}

void Commands::changed(bool Views::*view) {
    changed_.*view = true;
    if (!running()) showChanges();
}

void Commands::showChanges() {
    const Views views = std::exchange(changed_, {});
    if (views != Views{}) screen_->refresh(views);
}

void Commands::showCaption(const std::string& caption) {
    if (caption_ == caption) return;
    caption_ = caption;
    screen_->showCaption(caption);
}

}  // namespace bramblet

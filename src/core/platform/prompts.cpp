#include "core/platform/prompts.h"

#include <algorithm>

namespace bramblet {

void Prompts::say(const std::string& failure, Loss loss) {
    const std::string sentence = failure + (failure.ends_with('.') ? "" : ".");
    const bool said = std::any_of(failures_.begin(), failures_.end(),
                                  [&](const auto& entry) { return entry.second == sentence; });
    if (!said) failures_.emplace(loss, sentence);
    if (depth_ == 0) showCollected();
}

void Prompts::sayDone(const std::string& line) {
    done_ = line;
    if (depth_ == 0) showCollected();
}

std::string Prompts::takeFailures() {
    std::string line;
    for (const auto& [loss, sentence] : failures_)
        line += (line.empty() ? "" : " ") + sentence;
    failures_.clear();
    return line;
}

void Prompts::showCollected() {
    std::string line = takeFailures();
    const Tone tone = line.empty() ? Tone::Done : Tone::Failure;
    line += (line.empty() || done_.empty() ? "" : " ") + done_;
    done_.clear();
    if (!line.empty()) showStatus(line, tone);
}

}  // namespace bramblet

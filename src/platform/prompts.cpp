#include "platform/prompts.h"

namespace bramblet {

void Prompts::say(const std::string& failure) {
    const bool ended = failure.ends_with('.');
    failures_ += (failures_.empty() ? "" : " ") + failure + (ended ? "" : ".");
    if (depth_ == 0) showCollected();
}

void Prompts::sayDone(const std::string& line) {
    done_ = line;
    if (depth_ == 0) showCollected();
}

void Prompts::showCollected() {
    if (!failures_.empty()) {
        showStatus(failures_, Tone::Failure);
    } else if (!done_.empty()) {
        showStatus(done_, Tone::Done);
    }
    failures_.clear();
    done_.clear();
}

}  // namespace bramblet

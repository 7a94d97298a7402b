#include "core/settings/undo.h"

#include "core/platform/text.h"

#include <utility>

namespace bramblet {
namespace {

std::string sentence(std::string text) {
    return upper(text.substr(0, 1)) + text.substr(1);
}

}  // namespace

void Undo::offer(Step step) {
    step_ = std::move(step);
    commands_.sayDone(step_.done);
}

void Undo::mu_Undo_Click() {
    if (!available()) return;
    commands_.run([&] {
        const Step step = std::exchange(step_, {});
        bool taken = false;
        commands_.attempt(sentence(step.what) + " was not undone: ", [&] { taken = step.back(); });
        if (!taken) step_ = step;
    });
}

Undo::Step deletionOf(const std::string& thing, std::function<bool()> back) {
    return {sentence(thing) + " deleted.", "deleting " + thing, std::move(back)};
}

std::string called(const std::string& thing, const std::string& name) {
    constexpr std::size_t kMost = 40;
    const std::string text = trimmed(withoutControls(name));
    if (text.empty()) return thing;
    return thing + " \"" + (text.size() > kMost ? text.substr(0, kMost - 3) + "..." : text) + "\"";
}

}  // namespace bramblet

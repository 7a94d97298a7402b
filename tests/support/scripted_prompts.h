// Answers the core's questions from a script, and fails the test when a question is not the one
// that the script expects.
#pragma once

#include "core/platform/prompts.h"

#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <variant>

namespace bramblet::test {

class ScriptedPrompts : public Prompts {
  public:
    ~ScriptedPrompts() override { EXPECT_TRUE(done()) << script_.size() << " not asked"; }

    /// The next message box must be this one, to the letter.
    void expect(const Message& message, Answer answer = Answer::Ok) {
        script_.push_back({inFull(message), {}, answer});
    }
    /// The next message box must say this somewhere.
    void expectSaying(const std::string& part, Answer answer = Answer::Ok) {
        script_.push_back({part, {}, answer, true});
    }
    void expectInput(const std::string& prompt, const std::string& title, const std::string& preset,
                     std::optional<std::string> answer) {
        script_.push_back({inFull({prompt, title + ": " + preset}), {}, std::move(answer)});
    }
    /// The next choice of a file or folder must suggest this name; it is answered with a path.
    void expectChoice(const std::filesystem::path& suggested,
                      std::optional<std::filesystem::path> answer) {
        script_.push_back({"", suggested, std::move(answer)});
    }
    bool done() const { return script_.empty(); }

    FileChoice lastChoice;   ///< of a file or a folder
    std::size_t filter = 0;  ///< set when a file to save is chosen

    Answer ask(const Message& message) override {
        return reply<Answer>(inFull(message), {}).value_or(Answer::Cancel);
    }
    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string& preset) override {
        using Text = std::optional<std::string>;
        return reply<Text>(inFull({prompt, title + ": " + preset}), {}).value_or(std::nullopt);
    }
    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice& choice) override {
        lastChoice = choice;
        return choose(choice.name);
    }
    std::optional<ChosenFile> chooseFileToSave(const FileChoice& choice) override {
        const auto path = chooseFileToOpen(choice);
        return path ? std::optional(ChosenFile{*path, filter}) : std::nullopt;
    }
    std::optional<std::filesystem::path> chooseFolder(const std::string& title,
                                                      const std::filesystem::path& start) override {
        lastChoice = {title, start, "", {}};
        return choose(start);
    }
    std::optional<std::string> chooseFont(const std::string& current) override {
        const auto name = choose(current);
        return name ? std::optional(name->string()) : std::nullopt;
    }
    void progress(const std::string&, int, int) override {}

    /// What the user does while an operation that may be stopped is at a step; false stops it.
    std::function<bool(int done, int total)> onStep = [](int, int) { return true; };
    bool mayGoOn(const std::string&, int done, int total) override { return onStep(done, total); }

  private:
    using Path = std::optional<std::filesystem::path>;
    struct Step {
        std::string text;                 ///< of the question, or a part of it
        std::filesystem::path suggested;  ///< by a choice
        std::variant<Answer, std::optional<std::string>, Path> reply;
        bool part = false;
    };

    static std::string inFull(const Message& message) {
        return message.title + "\n" + message.text + "\nbuttons " +
               std::to_string(static_cast<int>(message.buttons)) + ", icon " +
               std::to_string(static_cast<int>(message.icon)) + ", preset " +
               (message.preset ? std::to_string(static_cast<int>(*message.preset)) : "none");
    }
    /// The script's reply, if it goes on with a question of this kind.
    template <class Reply>
    std::optional<Reply> reply(const std::string& text, const std::filesystem::path& suggested) {
        if (done() || !std::holds_alternative<Reply>(script_.front().reply)) {
            ADD_FAILURE() << "unexpected question: " << text << suggested;
            return std::nullopt;
        }
        const Step step = script_.front();
        script_.pop_front();
        EXPECT_EQ(suggested, step.suggested);
        if (step.part)
            EXPECT_NE(text.find(step.text), std::string::npos) << text << "\nlacks " << step.text;
        else
            EXPECT_EQ(text, step.text);
        return std::get<Reply>(step.reply);
    }
    Path choose(const std::filesystem::path& suggested) {
        return reply<Path>("", suggested).value_or(std::nullopt);
    }

    std::deque<Step> script_;
};

}  // namespace bramblet::test

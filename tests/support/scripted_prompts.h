// Answers the core's questions from a script, and fails the test when a question is not the one
// that the script expects.
#pragma once

#include "core/platform/prompts.h"

#include <deque>
#include <gtest/gtest.h>
#include <variant>

namespace bramblet::test {

class ScriptedPrompts : public Prompts {
  public:
    ~ScriptedPrompts() override { EXPECT_TRUE(script_.empty()) << script_.size() << " not asked"; }

    /// The next message box must be this one, to the letter.
    void expect(const Message& message, Answer answer = Answer::Ok) {
        script_.push_back(Box{message, answer});
    }
    /// The next message box must say this somewhere.
    void expectSaying(const std::string& part, Answer answer = Answer::Ok) {
        script_.push_back(Saying{part, answer});
    }
    void expectInput(const std::string& prompt, const std::string& title, const std::string& preset,
                     std::optional<std::string> answer) {
        script_.push_back(Input{prompt, title, preset, std::move(answer)});
    }
    /// The next choice of a file or folder must suggest this name; it is answered with a path.
    void expectChoice(const std::filesystem::path& suggested,
                      std::optional<std::filesystem::path> answer) {
        script_.push_back(Choice{suggested, std::move(answer)});
    }
    bool done() const { return script_.empty(); }

    std::string lastLine;   ///< the line last said in the status bar
    FileChoice lastChoice;  ///< of a file or a folder

    Answer ask(const Message& message) override {
        if (const auto* saying = next<Saying>()) {
            EXPECT_NE(message.text.find(saying->part), std::string::npos) << message.text;
            return taken(*saying).answer;
        }
        const auto* box = next<Box>();
        if (box == nullptr) {
            ADD_FAILURE() << "unexpected message: " << message.title << ": " << message.text;
            return Answer::Cancel;
        }
        EXPECT_EQ(message.text, box->message.text);
        EXPECT_EQ(message.title, box->message.title);
        EXPECT_EQ(message.buttons, box->message.buttons);
        EXPECT_EQ(message.icon, box->message.icon);
        EXPECT_EQ(message.preset, box->message.preset);
        return taken(*box).answer;
    }

    std::optional<std::string> input(const std::string& prompt, const std::string& title,
                                     const std::string& preset) override {
        const auto* input = next<Input>();
        if (input == nullptr) {
            ADD_FAILURE() << "unexpected input box: " << prompt;
            return std::nullopt;
        }
        EXPECT_EQ(prompt, input->prompt);
        EXPECT_EQ(title, input->title);
        EXPECT_EQ(preset, input->preset);
        return taken(*input).answer;
    }

    std::optional<std::filesystem::path> chooseFileToOpen(const FileChoice& choice) override {
        lastChoice = choice;
        return choose(choice.name);
    }
    std::optional<std::filesystem::path> chooseFileToSave(const FileChoice& choice) override {
        lastChoice = choice;
        return choose(choice.name);
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
    void showStatus(const std::string& line, Tone) override { lastLine = line; }

  private:
    struct Box {
        Message message;
        Answer answer;
    };
    struct Saying {
        std::string part;
        Answer answer;
    };
    struct Input {
        std::string prompt, title, preset;
        std::optional<std::string> answer;
    };
    struct Choice {
        std::filesystem::path suggested;
        std::optional<std::filesystem::path> answer;
    };

    template <class Kind>
    const Kind* next() const {
        return script_.empty() ? nullptr : std::get_if<Kind>(&script_.front());
    }
    template <class Kind>
    Kind taken(const Kind& front) {
        Kind copy = front;
        script_.pop_front();
        return copy;
    }
    std::optional<std::filesystem::path> choose(const std::filesystem::path& suggested) {
        const auto* choice = next<Choice>();
        if (choice == nullptr) {
            ADD_FAILURE() << "unexpected choice of a file: " << suggested;
            return std::nullopt;
        }
        EXPECT_EQ(suggested, choice->suggested);
        return taken(*choice).answer;
    }

    std::deque<std::variant<Box, Saying, Input, Choice>> script_;
};

}  // namespace bramblet::test

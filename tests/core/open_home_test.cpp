#include "core/app/open_home.h"

#include "core/platform/path_text.h"
#include "support/scripted_prompts.h"
#include "support/temporary_folder.h"

#include <iterator>

namespace bramblet::test {
namespace {

class OpenHomeTest : public ::testing::Test {
  protected:
    class Window : public Desktop {
      public:
        void letToFront(std::uint64_t process) override { process_ = process; }
        std::uint64_t process_ = 0;
    };

    bool enter(
        OpenHome& home, const std::function<void()>& moment = [] {},
        const std::filesystem::path& file = {}) {
        return home.enter(prompts, window, moment, file);
    }
    std::string sign() const { return contentOf(folder / "bramblet.open"); }
    void leaveSign(const std::string& text) const { writeFile(folder / "bramblet.open", text); }
    std::ptrdiff_t filesLeft() const {
        return std::distance(std::filesystem::directory_iterator(folder.path()), {});
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    Window window;
};

TEST_F(OpenHomeTest, ASecondStartCallsTheFirstToTheFrontAndEnds) {
    OpenHome first(folder.path());
    EXPECT_TRUE(enter(first));
    EXPECT_FALSE(first.wasCalled());
    {
        OpenHome second(folder.path());
        int calls = 0;
        EXPECT_FALSE(enter(second, [&] { calls += first.wasCalled() ? 1 : 0; }));
        EXPECT_EQ(calls, 1);
        for (const std::filesystem::path file : {u8"/home/\u0142/a b.sid", u8""}) {
            std::optional<std::filesystem::path> called;
            EXPECT_FALSE(enter(
                second, [&] { called = first.wasCalled(); }, file));
            EXPECT_EQ(called, file) << "which the first one opens";
        }
        EXPECT_EQ(window.process_, os::processNumber());
    }
    EXPECT_FALSE(first.wasCalled());
    first.leave();
    EXPECT_EQ(filesLeft(), 0);
    EXPECT_TRUE(enter(first)) << "it is free again";
}

TEST_F(OpenHomeTest, OneThatDoesNotAnswerIsAskedAbout) {
    OpenHome first(folder.path());
    EXPECT_TRUE(enter(first));
    {
        OpenHome second(folder.path());
        const std::string question =
            "Bramblet is already open, but does not answer. Perhaps it is busy. It uses the same "
            "settings:\r\n\r\n" +
            shown(folder.path()) +
            "\r\n\r\nRetry: look again, for example after it has been closed.\r\nIgnore: start all "
            "the same. The settings of the one that is closed last are kept.\r\nClose: do not "
            "start.";
        const Message asked{question, "Bramblet", Buttons::RetryIgnoreClose, Icon::Exclamation};
        prompts.expect(asked, Answer::Retry);
        prompts.expect(asked, Answer::Close);
        EXPECT_FALSE(enter(second));
        prompts.expect(asked, Answer::Ignore);
        EXPECT_TRUE(enter(second));
    }
    EXPECT_EQ(filesLeft(), 0);
    leaveSign("another program's");
    first.leave();
    EXPECT_EQ(sign(), "another program's");
}

TEST_F(OpenHomeTest, WhatIsLeftOfAProgramThatEndedKeepsNobodyOut) {
    const std::string here = os::machineName();
    const std::string own = std::to_string(os::processNumber());
    ASSERT_NE(os::processMark(os::processNumber()), "");
    for (const std::string& left :
         {here + "\n" + own + "\nanother-start", here + "\n4194305\n1-2", std::string(),
          here + "\n", std::string("\0\0\0\0", 4), std::string(5000, 'x')}) {
        leaveSign(left);
        writeFile(folder / "bramblet.call", "");
        OpenHome home(folder.path());
        EXPECT_TRUE(enter(home)) << left;
        EXPECT_NE(sign(), left);
        home.leave();
        EXPECT_EQ(filesLeft(), 0) << left;
    }
}

TEST_F(OpenHomeTest, AnotherMachineIsNamedAndNotCalled) {
    leaveSign("FRONT-DESK\n" + std::to_string(os::processNumber()) + "\n1-2");
    OpenHome home(folder.path());
    prompts.expectSaying(
        "Bramblet is already open on the computer FRONT-DESK, or that computer was cut off while "
        "it was.",
        Answer::Ignore);
    EXPECT_TRUE(enter(home, [] { ADD_FAILURE() << "waits for an answer"; }));
    home.leave();
    EXPECT_EQ(filesLeft(), 0);
}

TEST_F(OpenHomeTest, WhereNoSignCanBePutUpTheProgramStarts) {
    writeFile(folder / "file", "");
    for (const auto& place : {folder / "file" / "", folder / "file" / "below"}) {
        OpenHome home(place);
        EXPECT_TRUE(enter(home));
        EXPECT_FALSE(home.wasCalled());
    }
    obstruct(folder / "bramblet.open");
    OpenHome home(folder.path());
    EXPECT_TRUE(enter(home));
    EXPECT_EQ(filesLeft(), 2);
}

}  // namespace
}  // namespace bramblet::test

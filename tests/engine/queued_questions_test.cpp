#include "engine/queued_questions.h"

#include <gtest/gtest.h>

#include "tessel/error.h"

namespace tessel::test {

namespace {

using host::Answer;
using host::Buttons;

TEST(QueuedQuestions, AnswerFromTheQueueOrCancel) {
    struct Case {
        Buttons buttons;
        std::deque<QueuedAnswer> queue;
        Answer expected;
    };
    const Case cases[] = {
        {Buttons::OK, {Answer::Cancel}, Answer::OK},  // a message takes no answer
        {Buttons::OKCancel, {}, Answer::Cancel},
        {Buttons::OKCancel, {Answer::OK}, Answer::OK},
        {Buttons::YesNo, {}, Answer::No},
        {Buttons::YesNo, {Answer::Yes}, Answer::Yes},
    };
    QueuedQuestions questions;
    for (const auto& c : cases) {
        questions.SetAnswers(c.queue);
        EXPECT_EQ(questions.Show({.text = "Sure?", .buttons = c.buttons}), c.expected);
    }
    EXPECT_EQ(questions.TakeAsked().size(), std::size(cases));
    EXPECT_TRUE(questions.TakeAsked().empty());
}

TEST(QueuedQuestions, TypedTextsAnswerDialogsOnly) {
    QueuedQuestions questions;
    EXPECT_EQ(questions.Ask({.prompt = "Name"}), std::nullopt);
    questions.SetAnswers({TypedText{"A"}, Answer::Cancel, Answer::OK});
    EXPECT_EQ(questions.Ask({.prompt = "Name", .text = "B"}), "A");
    EXPECT_EQ(questions.Ask({.prompt = "Name", .text = "B"}), std::nullopt);
    EXPECT_EQ(questions.Ask({.prompt = "Name", .text = "B"}), "B");
    questions.SetAnswers({Answer::Yes, TypedText{"A"}, Answer::No});
    EXPECT_THROW((void)questions.Ask({.prompt = "Name"}), Error);
    for (int i = 0; i < 2; ++i)
        EXPECT_THROW((void)questions.Show({.text = "Sure?", .buttons = Buttons::OKCancel}), Error);
}

}  // namespace

}  // namespace tessel::test

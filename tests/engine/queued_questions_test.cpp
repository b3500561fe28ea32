#include "engine/queued_questions.h"

#include <gtest/gtest.h>

#include "tessel/error.h"

namespace tessel::test {

namespace {

using host::Answer;
using host::Buttons;

TEST(QueuedQuestions, AnswerFromTheQueueOrCancel) {
    QueuedQuestions questions;
    const auto show = [&](Buttons buttons) { return questions.Show({.text = "Sure?", .buttons = buttons}); };
    const auto ask = [&] { return questions.Ask({.prompt = "Name", .text = "B"}); };
    EXPECT_EQ(show(Buttons::OKCancel), Answer::Cancel);
    EXPECT_EQ(show(Buttons::YesNo), Answer::No);
    EXPECT_EQ(ask(), std::nullopt);
    questions.SetAnswers({Answer::OK, Answer::Yes, TypedText{"A"}, Answer::Cancel, Answer::OK});
    EXPECT_EQ(show(Buttons::OK), Answer::OK) << "a message takes no answer";
    EXPECT_EQ(show(Buttons::OKCancel), Answer::OK);
    EXPECT_EQ(show(Buttons::YesNo), Answer::Yes);
    EXPECT_EQ(ask(), "A");
    EXPECT_EQ(ask(), std::nullopt);
    EXPECT_EQ(ask(), "B");
    questions.SetAnswers({Answer::Yes, TypedText{"A"}, Answer::No});
    EXPECT_THROW((void)ask(), Error);
    for (int i = 0; i < 2; ++i) EXPECT_THROW((void)show(Buttons::OKCancel), Error);
    EXPECT_EQ(questions.TakeAsked().size(), 9U);
    EXPECT_TRUE(questions.TakeAsked().empty());
}

TEST(QueuedQuestions, HoldAFormsAnswerAgainstItsFields) {
    using Kind = host::FormField::Kind;
    const host::Form form{
        .title = "T",
        .fields = {{.key = "k", .kind = Kind::Choice, .value = "a", .choices = {{"a", "A"}}},
                   {.key = "n", .kind = Kind::Number, .value = 1},
                   {.key = "c", .kind = Kind::Check, .value = false},
                   {.key = "f", .kind = Kind::SaveFile, .value = "x"},
                   {.key = "l", .kind = Kind::List}}};
    QueuedQuestions questions;
    const auto fill = [&](const std::string& key, const Value& value) {
        const FilledForm answer{std::make_shared<Collection>()};
        answer.values->Add(value, key);
        questions.SetAnswers({answer});
        return questions.Fill(form);
    };
    EXPECT_EQ(fill("N", "7")->At("n"), Value(7));
    EXPECT_EQ(fill("c", 1)->At("c"), Value(true));
    const std::pair<const char*, Value> wrong[] = {{"k", "b"},     {"n", "many"}, {"n", 2.5},    {"n", true},
                                                   {"c", "maybe"}, {"f", Null{}}, {"file", "x"}, {"l", ""}};
    for (const auto& [key, value] : wrong) try {
            (void)fill(key, value);
            ADD_FAILURE() << key;
        } catch (const Error& error) {
            EXPECT_EQ(error.what(), "The answer given does not fit the field \"" + std::string(key) +
                                        "\" of the question \"T\".");
        }
}

}  // namespace

}  // namespace tessel::test

#include "runner/serve_calls.h"

#include <sstream>

#include "lines/json_values.h"
#include "schema/form_reader.h"
#include "support/raw_sql.h"
#include "support/schema_test.h"

namespace tessel::test {

namespace {

class ServingCalls : public SchemaTest {
  protected:
    ServingCalls() { state.questions = {std::shared_ptr<void>(), &answering}; }
    std::vector<std::string> Serve(const std::string& lines) {
        std::istringstream input(lines);
        std::ostringstream output;
        ServeCalls({state, answering}, input, output);
        std::vector<std::string> answers;
        std::istringstream read(output.str());
        for (std::string line; std::getline(read, line);) answers.push_back(line);
        return answers;
    }
    QueuedQuestions answering;
};

TEST_F(ServingCalls, GoesOnAfterEveryKindOfError) {
    const std::pair<const char*, const char*> cases[] = {
        {"{", "json"},
        {"[1]", "json"},
        {"7", "json"},
        {R"({"id":1})", "json"},
        {R"({"member":7})", "json"},
        {R"({"member":"ToolID","args":{}})", "json"},
        {R"({"member":"ToolID","args":[[1]]})", "json"},
        {R"({"member":"MethodID","put":"x","args":[]})", "json"},
        {R"({"member":"TableAdd","args":["A",0,null,{"date":"soon"}]})", "json"},
        {R"({"member":"ToolID","answers":["Maybe"]})", "json"},
        {R"({"member":"IndexMatch","args":[1,{"c1":1,"C1":2}]})", "collection"},
        {R"({"member":"ToolID","put":"x"})", "member"},
        {R"({"member":"TableFly"})", "member"},
        {R"({"member":"TableDrop"})", "conversion"},
        {R"({"member":"TableDrop","args":[1e10]})", "conversion"},
        {R"({"member":"TableDrop","args":[1,2]})", "argument"},
        {R"({"member":"ReturnCode","put":40000})", "conversion"},
        {"{\"member\":\"SQLID\",\"args\":[\"\xff\"]}", "json"},
        {R"({"member":"GetProjectSettings","args":["a\u0000b"]})", "sql"},
        {R"({"member":"TableAdd","args":["A",0,null,null,null,null]})", "conversion"},
        {R"({"member":"ReturnCode","put":1e999})", "json"},
        {R"({"on":7,"member":"Name"})", "json"},
        {R"({"on":"ToolID","member":"Name"})", "member"},
        {R"({"on":"ProjectDB","member":"Execute","args":["drop table Tables"]})", "sql"},
    };
    std::string lines;
    for (const auto& [line, kind] : cases) lines += std::string(line) + "\n";
    std::string deep;
    for (int i = 0; i < 200'000; ++i) deep += "{\"a\":";
    EXPECT_EQ(Json::parse(Serve(deep).at(0))["error"]["kind"], "json");
    const auto answers = Serve(lines + "\n \r\n{\"id\":[1],\"member\":\"ToolID\"}\n");
    ASSERT_EQ(answers.size(), std::size(cases) + 1);
    for (std::size_t i = 0; i < std::size(cases); ++i)
        EXPECT_EQ(Json::parse(answers[i])["error"]["kind"], cases[i].second) << cases[i].first << answers[i];
    EXPECT_EQ(answers.back(), R"({"id":[1],"result":"VNT","args":[],"messages":[]})");
}

TEST_F(ServingCalls, SaysWhyTheDatabaseDidNotComply) {
    constexpr const char* add =
        R"({"member":"TableAdd","args":["A",0,null,{"date":"2026-01-31"},null,null]})";
    RunRawSql(state.databaseFilename,
              "create trigger T before insert on Tables begin insert into Gone values(1); end");
    const auto refused = Json::parse(Serve(add).at(0));
    EXPECT_EQ(refused["result"], false);
    EXPECT_NE(refused.value("reason", "").find("Gone"), std::string::npos) << refused.dump();
    RunRawSql(state.databaseFilename, "drop trigger T");
    const auto answers =
        Serve(add + std::string("\n") + add + "\n" + R"({"member":"TableDrop","args":[99]})");
    for (const auto& answer : answers) EXPECT_FALSE(Json::parse(answer).contains("reason")) << answer;
}

TEST_F(ServingCalls, ReachesTheObjectsOfTheWorkspace) {
    AddTable("A");
    const auto answers = Serve(
        R"x({"on":"ProjectDB","member":"Execute","args":["insert into IndexColumns values(1,2,1,'A',null)"]})x"
        "\n"
        R"({"on":"projectdb","member":"Select","args":["select TabID, TableName from Tables"]})"
        "\n"
        R"({"member":"ProjectDB"})"
        "\n"
        R"({"member":"LoadTableCombo","args":[{"handle":1}]})");
    EXPECT_EQ(Json::parse(answers.at(0))["result"], 1);
    EXPECT_EQ(Json::parse(answers.at(1))["result"].dump(), R"({"1":{"TabID":1,"TableName":"A"}})");
    EXPECT_EQ(Json::parse(answers.at(3))["error"]["kind"], "conversion") << "no combo box";
}

TEST_F(ServingCalls, StopsWhereItsAnswersAreLost) {
    AddTable("A");
    std::istringstream input("{\"member\":\"TableDrop\",\"args\":[1]}\n");
    std::ostringstream output;
    output.setstate(std::ios::failbit);
    EXPECT_THROW(ServeCalls({state, answering}, input, output), Error);
    EXPECT_EQ(Rows("select TableName from Tables"), std::vector<std::string>{"A"});
}

TEST_F(ServingCalls, DoesNothingForACallWhoseAnswerDoesNotFit) {
    AddTable("A");
    const auto answers = Serve(R"({"id":1,"member":"DropTableVerbally","args":[1,"A"],"answers":["Yes"]})");
    EXPECT_EQ(Json::parse(answers.at(0))["error"]["kind"], "answer");
    EXPECT_EQ(Rows("select TableName from Tables"), std::vector<std::string>{"A"});
}

TEST_F(ServingCalls, AnswersBelongToTheirCallAlone) {
    const auto answers = Serve(
        "{\"member\":\"ToolID\",\"answers\":[\"OK\"]}\n"
        "{\"member\":\"DropTableVerbally\",\"args\":[1,\"A\"]}\n");
    EXPECT_EQ(Json::parse(answers.at(1))["messages"][0]["answer"], "Cancel");
}

TEST_F(ServingCalls, TellsAFormsAnswerAsItWasGiven) {
    for (const std::string key : {"date", "combo", "missing", "handle"}) {
        const std::string answer = R"({"values":{")" + key + R"(":"x"}})";
        const auto told = Serve(R"({"on":"ToolWindow","member":"Form","args":[{"fields":{"collection":{")" +
                                key + R"(":{"kind":"text"}}}}],"answers":[)" + answer + "]}");
        EXPECT_EQ(Json::parse(told.at(0))["messages"][0]["answer"].dump(), answer) << told.at(0);
    }
}

TEST(JsonValues, GoBothWays) {
    const char* cases[] = {"null",
                           "true",
                           "-2147483648",
                           "2147483648.0",
                           "0.1",
                           R"("日本\n\"x\"")",
                           R"({"missing":true})",
                           R"({"date":"2026-01-31T10:00:00"})",
                           R"({"c2":2,"c1":{"a":null}})",
                           R"({"missing":false})",
                           R"({"collection":{"missing":true}})",
                           R"({"collection":{"date":{"kind":"text"}}})",
                           R"({"collection":{"combo":1}})",
                           R"({"collection":{"name":"A","handle":1}})",
                           R"({"collection":{"collection":{}}})",
                           R"({"collection":1})",
                           "{}"};
    ObjectHandles none;
    for (const char* text : cases) EXPECT_EQ(ToJson(FromJson(Json::parse(text), none), none).dump(), text);
    EXPECT_EQ(FromJson(Json::parse("2147483648"), none), Value(2147483648.0));
    EXPECT_EQ(FromJson(Json::parse("1.0"), none), Value(1.0));
    EXPECT_EQ(ToJson(Value(std::shared_ptr<Object>()), none).dump(), "null");
}

TEST(Form, TakesWhatSuitsAFieldAndNamesWhatIsNoForm) {
    const auto read = [](const char* json) {
        ObjectHandles none;
        const Value form = FromJson(Json::parse(json), none);
        return ReadForm(**form.As<std::shared_ptr<Collection>>());
    };
    const auto form = read(R"({"fields":{"f":{"kind":"list","rows":{"r":{"a":null,"b":2}}}}})");
    EXPECT_EQ(form.fields.at(0).rows.at(0), (std::vector<std::string>{"", "2"}));
    const std::pair<const char*, Value> values[] = {
        {R"("kind":"text")", ""},
        {R"("kind":"number","value":1.5)", 2},
        {R"("kind":"number","value":"many")", 0},
        {R"("kind":"check")", false},
        {R"("kind":"choice","choices":{"a":"A","b":"B"},"value":"c")", "a"},
        {R"("kind":"choice","value":"c")", ""}};
    for (const auto& [field, value] : values)
        EXPECT_EQ(read((R"({"fields":{"f":{)" + std::string(field) + "}}}").c_str()).fields.at(0).value,
                  value)
            << field;
    try {
        (void)read(R"({"fields":{"f":{"kind":"choice","choices":{"a":{}}}}})");
        ADD_FAILURE();
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "the field \"f\": \"a\" must be a text.");
    }
}

}  // namespace

}  // namespace tessel::test

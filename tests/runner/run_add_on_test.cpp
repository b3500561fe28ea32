#include "runner/run_add_on.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>

#include "runner/runner_test.h"
#include "support/child_process.h"
#include "verify/db_check.h"

namespace tessel::test {

namespace {

using host::Answer;

const std::string addBook =
    R"(call '{"member":"TableAdd","args":["BOOK",0,null,{"date":"2026-01-31"},null,null]}')"
    "\n";
const std::string refusedBook =
    R"(call '{"member":"TableAdd","args":["",0,null,{"date":"2026-01-31"},null,null]}')"
    "\n";
const std::string failing = "echo '{\"error\":{\"message\":\"no paper\"}}'\n";

// Stops the tool after some looks, which no tool of these tests should need but the one that hangs.
struct Watch : RunWatch {
    bool GoesOn() override { return --looksLeft > 0; }
    int looksLeft = 400;
};

class RunningAddOns : public RunnerTest {
  protected:
    RunningAddOns() {
        state.verifySchema = [](ComponentState& schema) { DBCheck(schema).VerifySchema(true); };
        WriteRegistry(
            "<CLASS PROGID='Shell.Tool' PROGRAM='tool'/><CLASS PROGID='Lib' LIBRARY='l.so'/>"
            "<CLASS PROGID='Gone' PROGRAM='gone'/>");
    }
    RunEnd Run(const std::string& script, OnFailure onFailure = OnFailure::AskUser) {
        WriteProgram("tool", script);
        return RunEntry(onFailure);
    }
    RunEnd RunEntry(OnFailure onFailure = OnFailure::AskUser) {
        result = Value();
        return RunAddOn(state, entry, {folder.Path(), watch, onFailure}, result);
    }
    // The one failure that the user was told, without the reason's further lines.
    std::string Reason() {
        std::string reason;
        for (const auto& asked : questions->TakeAsked())
            if (!asked.detail.empty()) reason += asked.detail.substr(0, asked.detail.find('\n'));
        return reason;
    }
    std::vector<std::string> Tables() { return Rows("select TableName from Tables"); }

    AddOnEntry entry{.caption = "N &Tool", .name = "tool", .progID = "Shell.Tool", .param = "x=1"};
    Watch watch;
    Value result;
};

TEST_F(RunningAddOns, GivesTheToolItsSurroundingsAndShowsWhatItAskedFor) {
    window->SetCVRL("before");
    const RunEnd end = Run(addBook +
                           "call '{\"member\":\"SelectedTabID\",\"put\":1}'\n"
                           "call '{\"member\":\"CVRL\",\"put\":\"other\"}'\n"
                           "call '{\"member\":\"MethodID\"}'; id=$answer\n"
                           "call '{\"member\":\"MethodName\"}'\n"
                           "case $id$answer in *'\"tool\"'*'\"N &Tool\"'*) ;; *) exit 7;; esac\n"
                           "echo \"{\\\"result\\\":\\\"$1 $(pwd)\\\"}\"");
    EXPECT_EQ(end, RunEnd::Succeeded) << Reason();
    EXPECT_EQ(result, Value("x=1 " + folder.Path()));
    EXPECT_EQ(Tables(), std::vector<std::string>{"BOOK"});
    EXPECT_EQ(window->CVRL(), "before");
    EXPECT_EQ(window->notes.back(), "select t1");
    EXPECT_EQ(frontend->errorsFile, state.databaseFilename + ".errors");
    EXPECT_EQ(frontend->log->activities.back().action, "Run N Tool");
    entry.progID = "lib";
    WriteProgram("tessel-addon-host", "printf '{\"result\":\"%s %s %s\"}\\n' \"$@\"");
    Write(programs + "/l.so", "");
    EXPECT_EQ(RunEntry(), RunEnd::Succeeded) << Reason();
    EXPECT_EQ(result, Value(programs + "/l.so Lib x=1"));
}

TEST_F(RunningAddOns, SucceedHoweverTheyLeave) {
    const int left = open("/dev/null", O_RDONLY);  // an open file that no tool is to have
    const std::string cases[] = {
        "exit 0",
        "printf '{\"member\":\"ToolID\"}\\n{\"member\":\"ToolID\"}'",
        "exec <&-; call '{\"member\":\"ToolID\"}'; call '{\"member\":\"ToolID\"}'; sleep 0.1; exit 0",
        "sleep 20 & exit 0",
        "sleep 20 & echo '{\"result\":null}'",
        "echo '{\"result\":null}'; sleep 60",
        "yes complaint | head -c 300000 >&2",
        "for i in 1 2 3 4 5; do yes | head -60; call '{\"member\":\"ToolID\"}'; done",
        "call '{\"member\":\"Verify\"}'; case $answer in *broken*) ;; *) exit 8;; esac",
        "[ ! -e /proc/$$/fd/" + std::to_string(left) + " ]",
    };
    state.verifySchema = [](ComponentState&) { throw std::runtime_error("broken"); };
    for (const auto& script : cases) {
        EXPECT_EQ(Run(addBook + script), RunEnd::Succeeded) << script << Reason();
        EXPECT_EQ(Tables(), std::vector<std::string>{"BOOK"}) << script;
        Ws().TableDrop(1);
        Db().Execute("delete from Tables");
    }
    close(left);
    EXPECT_GT(watch.looksLeft, 0);
}

TEST_F(RunningAddOns, FailAndSayWhy) {
    const std::pair<std::string, std::string> cases[] = {
        {failing, "no paper"},
        {"echo '{\"error\":7}'", "7"},
        {"echo went wrong >&2; exit 3", "It ended with the exit code 3."},
        {"kill -SEGV $$", "It was ended by the signal 11 (Segmentation fault)."},
        {"echo '{\"result\":null}'; exit 3", "It ended with the exit code 3."},
        {"echo '{\"result\":null}'; kill -KILL $$", "It was ended by the signal 9 (Killed)."},
        {"printf '{\"error\":\"%03000d\"}' 0", '"' + std::string(1999, '0') + "…"},
        {"yes hello", "It goes on writing lines that are no calls, such as \"hello\"."},
        {"id=$(head -c 60000 /dev/zero | tr '\\0' x); yes "
         "\"{\\\"id\\\":\\\"$id\\\",\\\"member\\\":\\\"ToolID\\\"}\"",
         "It goes on making calls without reading the answers."},
        {"tr '\\0' x </dev/zero", "It wrote a line that is too long."},
        {"echo '{\"result\":[1]}'", "A value cannot be an array: [1]."},
    };
    for (const auto& [script, reason] : cases) {
        EXPECT_EQ(Run(refusedBook + script), RunEnd::Failed) << script;
        EXPECT_EQ(Reason(), reason);
        EXPECT_EQ(frontend->log->activities.back().result.find("Failed: " + reason), 0U);
    }
    EXPECT_GT(watch.looksLeft, 0);
    for (int i = 0; i < 200; ++i)
        Db().Execute("insert into Errors(TblID,KeyID,ColumnID,Message) values(0,0,0,'m')");
    const std::string endless =
        "select count(*) as N from Errors a, Errors b, Errors c, Errors d "
        "where d.Message >= a.Message";
    const auto working = [](const std::string& member, const std::string& sql) {
        return R"(call '{"on":"ProjectDB","member":")" + member + R"(","args":[")" + sql + "\"]}'";
    };
    const std::string atWork[] = {
        "sleep 60", working("Select", endless),
        addBook + working("Execute", "update Tables set TableName=null where (" + endless + ") = 1")};
    for (const auto& script : atWork) {
        watch.looksLeft = 2;
        EXPECT_EQ(Run(script), RunEnd::Failed);
        EXPECT_EQ(Reason(), "It was stopped.");
        EXPECT_TRUE(Tables().empty());
    }
}

TEST_F(RunningAddOns, TakeWhatTheyStartedWithThem) {
    ASSERT_EQ(Run("sleep 60 >&- 2>&- & echo \"{\\\"result\\\":\\\"$!\\\"}\""), RunEnd::Succeeded) << Reason();
    const std::string status = "/proc/" + ToText(result) + "/status";
    const auto runs = [&] {
        return files::FileExists(status) && Content(status).find("State:\tZ") == std::string::npos;
    };
    const auto latest = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (runs() && std::chrono::steady_clock::now() < latest) usleep(1000);
    EXPECT_FALSE(runs());
}

TEST_F(RunningAddOns, ThatCannotStartSaySo) {
    const std::pair<const char*, const char*> cases[] = {
        {"None", "There is no class with the identifier \"None\"."}, {"Gone", "/gone cannot be examined"}};
    for (const auto& [progID, reason] : cases) {
        entry.progID = progID;
        entry.caption = "ツール(&T) && so (&&)";
        EXPECT_EQ(RunEntry(), RunEnd::Failed);
        const auto asked = questions->TakeAsked();
        ASSERT_EQ(asked.size(), 1U);
        EXPECT_EQ(asked[0].text,
                  "Failed to start ツール & so (&)\rProgID: " + std::string(progID) + "\rParam: x=1");
        EXPECT_EQ(asked[0].icon, host::Icon::Critical);
        EXPECT_NE(asked[0].detail.find(reason), std::string::npos) << asked[0].detail;
    }
    entry.progID = "Shell.Tool";
    std::filesystem::permissions(WriteProgram("tool", ""), std::filesystem::perms::owner_read);
    EXPECT_EQ(RunEntry(), RunEnd::Failed);
    EXPECT_NE(Reason().find("Permission denied"), std::string::npos);
}

TEST_F(RunningAddOns, ThatFailLeaveTheirChangesToTheUser) {
    struct Case {
        std::string script;
        OnFailure onFailure;
        std::deque<QueuedAnswer> answers;
        bool isKept;
    };
    const Case cases[] = {
        {failing, OnFailure::AskUser, {Answer::No}, false},
        {failing, OnFailure::AskUser, {Answer::Yes}, true},
        {"kill -KILL $$", OnFailure::AskUser, {Answer::No}, false},
        {failing, OnFailure::Drop, {}, false},
        {failing, OnFailure::Keep, {}, true},
        {"sleep 60", OnFailure::Keep, {}, false},
    };
    for (const auto& [script, onFailure, answers, isKept] : cases) {
        questions->Answers(answers);
        watch.looksLeft = script == "sleep 60" ? 20 : 400;
        EXPECT_EQ(Run(addBook + script, onFailure), RunEnd::Failed);
        EXPECT_EQ(Tables().size(), isKept ? 1U : 0U) << script;
        const auto notes = TakeNotes();
        EXPECT_EQ(std::ranges::count(notes, "refresh"), isKept ? 0 : 1);
        EXPECT_EQ(std::ranges::count(notes, "finish"), 1);
        (void)questions->TakeAsked();
        Db().Execute("delete from Tables");
    }
}

TEST_F(RunningAddOns, ThatFailAfterTheyVerifiedHaveChangedNothing) {
    AddTable("A");
    EXPECT_EQ(Run("call '{\"member\":\"Verify\"}'\n" + failing), RunEnd::Failed);
    EXPECT_TRUE(Rows("select Message from Errors").empty());
    EXPECT_TRUE(window->errors.empty());
}

TEST_F(RunningAddOns, CannotEndTheirTransaction) {
    for (const char* statement : {"commit", "end", "rollback", "release level0", "begin"}) {
        const std::string execute =
            std::string(R"(call '{"on":"ProjectDB","member":"Execute","args":[")") + statement + "\"]}'\n";
        EXPECT_EQ(Run(addBook + execute + addBook + failing, OnFailure::Drop), RunEnd::Failed);
        EXPECT_TRUE(Tables().empty()) << statement;
        EXPECT_EQ(Reason(), "no paper");
    }
}

TEST_F(RunningAddOns, AskTheUserUnlessTheCallBringsTheAnswer) {
    questions->Answers({Answer::Yes, TypedText{"BOOK"}});
    const RunEnd end = Run(
        "m='\"on\":\"ToolWindow\",\"member\":\"Message\",\"args\":[\"Go?\",\"warning\",\"YesNo\"]'\n"
        "call \"{$m}\"; first=$answer\n"
        "call '{\"on\":\"ToolWindow\",\"member\":\"Input\",\"args\":[\"Name:\"]}'; second=$answer\n"
        "call \"{$m,\\\"answers\\\":[\\\"No\\\"]}\"\n"
        "case $first$second$answer in *'\"result\":\"Yes\"'*BOOK*'\"result\":\"No\"'*) ;; *) exit 9;; esac");
    EXPECT_EQ(end, RunEnd::Succeeded) << Reason();
    EXPECT_EQ(state.questions, questions);
    EXPECT_EQ(questions->Left(), 0U);
}

TEST_F(RunningAddOns, ThatWantAVerifiedSchemaDoNotStartWithErrors) {
    const auto table = AddTable("A");
    entry.verify = true;
    EXPECT_EQ(Run(addBook), RunEnd::NotVerified);
    const auto asked = questions->TakeAsked();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].text, "You should fix DBSchema errors before running 'N Tool'.");
    EXPECT_EQ(asked[0].icon, host::Icon::Critical);
    EXPECT_EQ(Tables(), std::vector<std::string>{"A"});
    EXPECT_EQ(Ws().MethodID(), "");
    AddColumn(table, "ID");
    EXPECT_EQ(Run(addBook), RunEnd::Succeeded) << Reason();
    state.verifySchema = [this](ComponentState&) {
        window->StartProgress("Verify", 1);
        throw std::runtime_error("broken");
    };
    EXPECT_EQ(RunEntry(), RunEnd::Failed);
    EXPECT_EQ(TakeNotes().back(), "finish");
}

TEST_F(RunningAddOns, WhoseChangesCannotBeKeptSaySo) {
    const std::string manyTables =
        "i=0; while [ $i -lt 60 ]; do i=$((i+1)); call \"{\\\"member\\\":\\\"TableAdd\\\",\\\"args\\\":"
        "[\\\"T$i\\\",0,null,{\\\"date\\\":\\\"2026-01-31\\\"},null,null]}\"; done\n"
        "echo '{\"result\":1}'";
    WriteProgram("tool", manyTables);
    EXPECT_TRUE(HoldsInChild([&] {
        FillDisk(8192);
        const RunEnd end = RunEntry();
        const std::string why = Reason();
        return end == RunEnd::Failed && why.find("undone") != std::string::npos && result.IsNull() &&
               Tables().empty();
    }));
}

}  // namespace

}  // namespace tessel::test

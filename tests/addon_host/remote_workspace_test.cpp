#include "addon_host/remote_workspace.h"

#include <set>

#include "lines/list_combo.h"
#include "runner/call_server.h"
#include "support/schema_test.h"

namespace tessel::test {
namespace {

// Agrees to everything, and types the same name each time.
class Agreeing : public QueuedQuestions {
    host::Answer Show(const host::MessageBox&) override { return host::Answer::OK; }
    std::optional<std::string> Ask(const host::InputBox&) override { return "ASKED"; }
};

// An editor with a workspace over a fresh database.
class EditorSide : public SchemaTest {
  public:
    EditorSide() {
        state.questions = agreeing_;
        state.schemaObject = frontend->repository->Add("DBSCHEMA", "Demo");
        state.verifySchema = [this](ComponentState&) { window->notes.push_back("verify"); };
        state.databaseFilename = "schema.mdb";
    }
    using SchemaTest::Rows;
    using SchemaTest::state;
    using SchemaTest::TakeNotes;
    using SchemaTest::Ws;

    std::shared_ptr<Editor> Remote() {
        return Editor::Make([this](const std::string& line) {
            calls.insert(Json::parse(line)["member"].get<std::string>());
            return LineOf(server_.Answer(std::string_view(line)));
        });
    }
    std::set<std::string> calls;

  private:
    void TestBody() override {}
    std::shared_ptr<Agreeing> agreeing_ = std::make_shared<Agreeing>();
    CallServer server_{state, *agreeing_};
};

// What calls gave and handed back, a line each.
class Record {
  public:
    template <typename... Values>
    void operator()(const Values&... values) {
        std::string line;
        ((line += Shown(Value(values)) + " "), ...);
        lines.push_back(line);
    }
    std::vector<std::string> lines;

  private:
    static std::string Shown(const Value& value) {
        static ObjectHandles none;
        return LineOf(ToJson(value, none));
    }
};

const DateTime date = *ParseIso("2026-01-31T10:00:00");

void UseProperties(VNTWS& ws, Record& note) {
    ws.SetMethodID("Tool");
    ws.SetMethodName("名前");
    ws.SetReturnCode(-32768);
    ws.SetSelectedTabID(7);
    ws.SetCVRL("text:a\nb");
    note(ws.MethodID(), ws.MethodName(), ws.ReturnCode(), ws.SelectedTabID(), ws.CVRL(), ws.ToolID(),
         ws.DatabaseFilename());
    Arguments sql{"select TypeID from SQLTypes where TypeID < 3"};
    note(ws.ProjectDB()->Call("select", CallKind::Method, sql));
    Arguments none;
    note(ws.ToolWindow()->Call("CVRL", CallKind::Get, none), ws.objComposite() != nullptr);
}

void UseTables(VNTWS& ws, Record& note) {
    std::int32_t id = 0;
    std::string name = "BOOK";
    note(ws.GetFreeTableName(name), name);
    note(ws.TableAdd(name, id, Null{}, date, "via", Missing{}), id);
    note(ws.TableAdd("1", id, Null{}, date, Null{}, Null{}), id);
    note(ws.TableAddVerbally(name, id), name, id);
    note(ws.TableUpdate(1, Missing{}, "heap", "本 \"x\"", Missing{}));
    note(ws.GetFreeTableName(name = "BOOK"), name);
    Value caret = 3;
    Value noCaret = Missing{};
    note(ws.SQLID("1ab", caret), caret, ws.SQLID("1ab", noCaret), noCaret.IsMissing());
    note(ws.SQLInteger("a1", caret), caret);
    ListCombo combo;
    ws.LoadTableCombo(combo, 1);
    for (const auto& item : combo.Items()) note(item.text, item.data, combo.SelectedIndex());
}

void UseColumns(VNTWS& ws, Record& note) {
    std::int32_t id = 0;
    std::string name;
    note(ws.GetFreeColumnName(1, name), name);
    name = "PRICE";
    for (const bool nullable : {true, false})
        note(ws.ColumnAdd(1, name, 3, 9, 2, nullable, "c", 1.5, date, Null{}, Null{}, -1, id), name, id);
    std::int32_t type = 0;
    std::int32_t precision = 0;
    std::int32_t scale = 0;
    note(ws.GetCompatibleType(0, 0, "S9(7)V99", "COMP-3", type, precision, scale), type, precision, scale);
    note(ws.ColumnImport(1, "9FINE", type, precision, scale, date, Null{}, "text:a", name), name);
    note(ws.ColumnCopy(1, 2, -1), ws.ColumnUpdate(1, "COST", Missing{}, 8, Missing{}, true, Null{}, "0"));
    note(ws.ColumnDrop(2));
}

void UseKeys(VNTWS& ws, Record& note) {
    std::int32_t id = 0;
    note(ws.PrimaryAdd(1));
    Arguments sql{"insert into IndexColumns(IndexID,ColumnID,Position,Direction) values(1,1,1,'A')"};
    note(ws.ProjectDB()->Call("Execute", CallKind::Method, sql));
    const auto columns = ws.PrimaryKeyColumns(1);
    note(columns, ws.IndexMatch(1, *columns), ws.IndexMatch(1, Collection()));
    note(ws.ForeignAdd(2, 1, "FK", id), id, ws.ForeignUpdate(id, Missing{}, "C", "text:k"));
    note(ws.IndexAdd(2, "BY", id), id, ws.IndexUpdate(id, "BY2", true, Null{}));
    note(ws.IndexDrop(id), ws.ForeignDrop(1));
}

void UseTheRest(VNTWS& ws, Record& note) {
    ws.StartProgress("work", 2);
    ws.StartStep("step");
    ws.FinishStep(2);
    ws.FinishProgress();
    ws.RefreshBrowser();
    ws.Verify();
    ws.SetProjectSettings("A'|", "x");
    note(ws.GetProjectSettings("A'|"), ws.GetProjectSettings("none"));
    note(ws.DropTableVerbally(2, "ASKED"), ws.TableDrop(99));
    try {
        note(ws.PrimaryAdd(99));
    } catch (const Error& error) {
        note(KindName(error.Kind()), error.what());
    }
}

Record UseEverything(VNTWS& ws) {
    Record note;
    for (const auto use : {UseProperties, UseTables, UseColumns, UseKeys, UseTheRest}) use(ws, note);
    return note;
}

std::vector<std::string> Stored(EditorSide& editor) {
    std::vector<std::string> rows = editor.TakeNotes();
    for (const auto* table : {"Tables", "Columns", "Indices", "IndexColumns", "ForeignKeys"})
        for (const auto& row : editor.Rows(std::string("select * from ") + table)) rows.push_back(row);
    return rows;
}

constexpr std::size_t memberCount = 43;

TEST(RemoteWorkspace, DoesEverythingAsTheWorkspaceItself) {
    EditorSide direct;
    EditorSide served;
    RemoteWorkspace remote(served.Remote());
    EXPECT_EQ(UseEverything(remote).lines, UseEverything(direct.Ws()).lines);
    EXPECT_EQ(Stored(served), Stored(direct));
    for (const auto* ofObjects : {"select", "Execute"}) served.calls.erase(ofObjects);
    EXPECT_EQ(served.calls.size(), memberCount);
}

// A combo box of an add-on's own.
class OwnCombo : public ListCombo {};

TEST(RemoteWorkspace, IsCalledByNameAsTheWorkspaceItself) {
    EditorSide direct;
    EditorSide served;
    RemoteWorkspace remote(served.Remote());
    const auto combo = [] { return Value(std::shared_ptr<Object>(std::make_shared<OwnCombo>())); };
    const std::tuple<const char*, CallKind, std::function<Arguments()>> cases[] = {
        {"TableAdd", CallKind::Method, [] { return Arguments{"A", 0, Null{}, date, Null{}, Null{}}; }},
        {"loadtablecombo", CallKind::Method, [&] { return Arguments{combo()}; }},
        {"CVRL", CallKind::Put, [] { return Arguments{}; }},
        {"cvrl", CallKind::Get, [] { return Arguments{}; }},
        {"TableFly", CallKind::Method, [] { return Arguments{}; }},
        {"TableDrop", CallKind::Method, [] { return Arguments{"seven"}; }},
        {"IndexMatch", CallKind::Method,
         [] {
             return Arguments{1, std::make_shared<Collection>()};
         }},
    };
    const auto outcome = [](VNTWS& ws, std::string_view member, CallKind kind, Arguments arguments) {
        Record note;
        try {
            note(ws.Call(member, kind, arguments));
        } catch (const Error& error) {
            note(KindName(error.Kind()));
        }
        while (!arguments.empty() && arguments.back().IsMissing()) arguments.pop_back();
        for (const auto& argument : arguments) note(argument);
        return note.lines;
    };
    for (const auto& [member, kind, arguments] : cases)
        EXPECT_EQ(outcome(remote, member, kind, arguments()), outcome(direct.Ws(), member, kind, arguments()))
            << member;
}

TEST(RemoteWorkspace, PassesObjectsBackAsTheyAreThere) {
    EditorSide served;
    const auto editor = served.Remote();
    RemoteWorkspace remote(editor);
    const auto first = remote.objComposite();
    EXPECT_EQ(remote.objComposite(), first);
    EXPECT_NE(remote.ToolWindow(), first);
    EXPECT_EQ(editor->ToJson(first)["handle"], 1);
    served.state.schemaObject.reset();
    EXPECT_EQ(remote.objComposite(), nullptr);
}

}  // namespace
}  // namespace tessel::test

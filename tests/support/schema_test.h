#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#include "engine/queued_questions.h"
#include "platform/files/file_service.h"
#include "schema/component_state.h"
#include "support/fake_host.h"
#include "support/temporary_folder.h"
#include "tessel/convert.h"

namespace tessel::test {

// Answers from a queue, as headless programs do, but an unexpected question and an unused answer fail the
// test.
class StrictQuestions : public QueuedQuestions {
  public:
    host::Answer Show(const host::MessageBox& box) override {
        if (box.buttons != host::Buttons::OK) Expect(box.text);
        return QueuedQuestions::Show(box);
    }
    std::optional<std::string> Ask(const host::InputBox& box) override {
        Expect(box.prompt);
        lastInput = box;
        return QueuedQuestions::Ask(box);
    }
    std::shared_ptr<Collection> Fill(const host::Form& form) override {
        Expect(form.title);
        lastForm = form;
        return QueuedQuestions::Fill(form);
    }
    void Answers(std::deque<QueuedAnswer> answers) {
        left_ = answers.size();
        SetAnswers(std::move(answers));
    }
    [[nodiscard]] std::size_t Left() const { return left_; }

    host::InputBox lastInput;
    host::Form lastForm;

  private:
    void Expect(const std::string& question) {
        if (left_ == 0)
            ADD_FAILURE() << "unexpected question: " << question;
        else
            --left_;
    }
    std::size_t left_ = 0;
};

// A main window that writes down what it is told.
class RecordingWindow : public ToolWindow {
  public:
    void DrawTable(const std::string& name, std::int32_t id, const Value& tag,
                   const Value& comments) override {
        Note("draw " + name + " " + std::to_string(id) + " tag=" + Shown(tag) +
             " comments=" + Shown(comments));
    }
    void RemoveTable(const std::string& key) override { Note("remove " + key); }
    void AddConnector(const std::string& key, const std::string& from, const std::string& to,
                      const std::string& caption) override {
        Note("connect " + key + " " + from + ">" + to + " " + caption);
    }
    void SetConnectorText(const std::string& key, const std::string& caption) override {
        Note("caption " + key + " " + caption);
    }
    void RemoveConnector(const std::string& key) override { Note("disconnect " + key); }
    void StartProgress(const std::string& action, std::int32_t total) override {
        Note("start " + action + " " + std::to_string(total));
    }
    void StartStep(const std::string& act) override { Note("step " + act); }
    void FinishStep(std::int32_t length) override { Note("done " + std::to_string(length)); }
    void FinishProgress() override { Note("finish"); }
    void ShowErrors(const std::vector<ErrorRow>& rows, const std::string& title) override {
        errors = rows;
        Note("errors " + title);
    }
    void RefreshBrowser() override { Note("refresh"); }
    void SelectTable(const std::string& key) override { Note("select " + key); }
    std::string CVRL() const override { return cvrl_; }
    void SetCVRL(const std::string& value) override { cvrl_ = value; }

    std::vector<std::string> notes;
    std::vector<ErrorRow> errors;  // as shown last
    bool fails = false;            // every call throws after it was noted
    const ComponentState* state = nullptr;

  private:
    const ComponentState& State() const override { return *state; }
    static std::string Shown(const Value& value) {
        if (value.IsMissing()) return "(missing)";
        return value.IsNull() ? "(null)" : "'" + ToText(value) + "'";
    }
    void Note(std::string note) {
        notes.push_back(std::move(note));
        if (fails) throw Error(ErrorKind::Host, "the window fails");
    }
    std::string cvrl_;
};

// A workspace over a fresh schema database.
class SchemaTest : public testing::Test {
  protected:
    SchemaTest() {
        const std::string file = folder / "schema.mdb";
        files::CopyFile(std::string(TESSEL_SHARE) + "/DBSchema.mdb", file);
        state.texts = std::make_shared<text::Texts>(std::string(TESSEL_SHARE) + "/texts", "en");
        state.codePage = std::make_shared<text::CodePage>(1252);
        state.questions = questions;
        state.frontend = frontend;
        state.database = db::Database::Open(file);
        state.databaseFilename = file;
        state.window = window;
        window->state = &state;
        state.sqlTypes.LoadSqlTypes(*state.database);
    }
    ~SchemaTest() override { EXPECT_EQ(questions->Left(), 0U) << "answers that nothing asked for"; }

    VNTWS& Ws() { return *WorkspaceOf(state); }
    db::Database& Db() { return *state.database; }

    // The query's rows, a line each: fields parted by '|', Null as "-".
    std::vector<std::string> Rows(const std::string& sql) {
        std::vector<std::string> rows;
        for (auto query = Db().Select(sql); query.Next();) {
            std::string row;
            for (const auto& field : query.Fields()) {
                if (!row.empty()) row += '|';
                row += query[field].IsNull() ? "-" : ToText(query[field]);
            }
            rows.push_back(row);
        }
        return rows;
    }
    std::vector<std::string> TakeNotes() { return std::exchange(window->notes, {}); }

    void Mark() { Ws().SetProjectSettings("Verified", "OK"); }
    bool IsMarked() { return Ws().GetProjectSettings("Verified") == "OK"; }

    std::int32_t AddTable(const std::string& name) {
        std::int32_t id = -1;
        EXPECT_TRUE(Ws().TableAdd(name, id, Null{}, date, Null{}, Null{})) << name;
        return id;
    }
    std::int32_t AddColumn(std::int32_t table, std::string name, std::int32_t after = 0) {
        std::int32_t id = -1;
        if (after == 0) {
            auto last = Db().Select("select * from Columns where TabID = " + std::to_string(table) +
                                    " order by Position desc");
            after = last.Next() ? last.Integer("ColumnID") : -1;
        }
        EXPECT_TRUE(
            Ws().ColumnAdd(table, name, 4, 0, 0, true, Null{}, Null{}, date, Null{}, Null{}, after, id));
        return id;
    }

    const DateTime date = *ParseIso("2026-01-31T10:00:00");
    TemporaryFolder folder;
    std::shared_ptr<FakeFrontend> frontend = std::make_shared<FakeFrontend>(folder.Path(), TESSEL_SHARE);
    std::shared_ptr<StrictQuestions> questions = std::make_shared<StrictQuestions>();
    std::shared_ptr<RecordingWindow> window = std::make_shared<RecordingWindow>();
    ComponentState state;
};

}  // namespace tessel::test

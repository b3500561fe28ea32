#pragma once

#include <memory>
#include <string>

#include "engine/queued_questions.h"
#include "engine/tessel_engine.h"
#include "fuzz/input.h"
#include "support/temporary_folder.h"
#include "workbench/stand_alone_frontend.h"

namespace tessel::fuzz {

// A project with two tables, opened without a window.
struct Project {
    Project() {
        auto opened = workbench::WorkspaceFolder::Create(folder / "w", "Main");
        state.questions = questions;
        auto frontend = std::make_shared<workbench::StandAloneFrontend>(std::move(opened), "Main",
                                                                        std::string(TESSEL_SHARE), "en");
        Require(TesselEngine(state).Run(frontend, Missing{}, Missing{}) == 0, "The project does not open.");
        for (const char* table : {"A", "B"}) AddTable(table);
    }

    void AddTable(const std::string& name) {
        std::int32_t table = -1;
        std::int32_t column = -1;
        std::string columnName = "ID";
        const auto workspace = WorkspaceOf(state);
        (void)workspace->TableAdd(name, table, Null{}, Now(), Null{}, Null{});
        (void)workspace->ColumnAdd(table, columnName, 4, 0, 0, false, Null{}, Null{}, Now(), Null{}, Null{},
                                   -1, column);
        (void)workspace->PrimaryAdd(table);
    }

    TemporaryFolder folder;
    std::shared_ptr<QueuedQuestions> questions = std::make_shared<QueuedQuestions>();
    ComponentState state;
};

}  // namespace tessel::fuzz

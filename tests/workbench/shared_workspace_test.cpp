#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

#include "support/child_process.h"
#include "workbench/workspace_fixture.h"

namespace tessel::workbench {
namespace {

using SharedWorkspace = WorkspaceFixture;

TEST_F(SharedWorkspace, ProgramsThatWriteInTurnLoseNothing) {
    auto left = OpenRepository();
    auto right = OpenRepository();
    const auto held = left.FindObject("PROJECT", "Orders");
    std::set<std::string> identifiers;
    for (const auto* name : {"A", "B", "C"}) {
        identifiers.insert(Make(left, "TABLE", name)->Identifier());
        identifiers.insert(Make(right, "VIEW", name)->Identifier());
    }
    EXPECT_EQ(identifiers.size(), 6U);
    right.FindObject("PROJECT", "Orders")->SetAttribute("Note", "from the right");
    held->AddRelation("Includes", *right.FindObject("VIEW", "C"));

    EXPECT_EQ(held->Attribute("Note"), Value("from the right"));
    EXPECT_EQ(left.FindObject("VIEW", "B")->TypeName(), "VIEW");  // last read before it was made
    auto fresh = OpenRepository();
    for (const auto& identifier : identifiers)
        EXPECT_NO_THROW((void)fresh.ObjectById(identifier)) << identifier;
    EXPECT_EQ(fresh.FindObject("PROJECT", "Orders")->Related("Includes").size(), 1U);
}

TEST_F(SharedWorkspace, ProgramsThatWriteAtTheSameTimeLoseNothing) {
    constexpr int programs = 3;
    constexpr int objects = 15;
    for (int program = 0; program < programs; ++program) {
        if (fork() != 0) continue;
        const auto fault = KindThrown([&] {
            auto repository = OpenRepository();
            for (int i = 0; i < objects; ++i)
                Make(repository, "T" + std::to_string(program), std::to_string(i));
        });
        _exit(fault ? 1 : 0);
    }
    for (int status = -1; wait(&status) > 0;) EXPECT_EQ(status, 0);
    auto repository = OpenRepository();
    std::set<std::string> identifiers;
    for (int i = 0; i < programs * objects; ++i) {
        const auto type = "T" + std::to_string(i / objects);
        identifiers.insert(repository.FindObject(type, std::to_string(i % objects))->Identifier());
    }
    EXPECT_EQ(identifiers.size(), std::size_t{programs * objects});
}

TEST_F(SharedWorkspace, ADamagedFileIsNotWrittenOver) {
    auto repository = OpenRepository();
    const auto project = repository.FindObject("PROJECT", "Orders");
    const auto good = FileText();
    Write(FilePath(), "<workspace>");
    EXPECT_EQ(KindThrown([&] { project->SetAttribute("Note", "x"); }), ErrorKind::Xml);
    EXPECT_EQ(FileText(), "<workspace>");
    std::filesystem::remove(FilePath());
    EXPECT_EQ(KindThrown([&] { project->SetAttribute("Note", "x"); }), ErrorKind::File);
    EXPECT_FALSE(std::filesystem::exists(FilePath()));

    Write(FilePath(), good);
    project->SetAttribute("Note", "x");
    EXPECT_EQ(OpenRepository().FindObject("PROJECT", "Orders")->Attribute("Note"), Value("x"));
}

TEST_F(SharedWorkspace, AFullDiskLeavesFileAndMemoryAsTheyWere) {
    const auto before = FileText();
    EXPECT_TRUE(HoldsInChild([&] {
        auto repository = OpenRepository();
        const auto project = repository.FindObject("PROJECT", "Orders");
        FillDisk(before.size() + 20);
        const auto fault = KindThrown([&] { project->SetAttribute("Note", std::string(5000, 'x')); });
        return fault == ErrorKind::Full && project->Attribute("Note").IsNull();
    }));
    EXPECT_EQ(FileText(), before);
    std::size_t left = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator((folder_ / "w"))) ++left;
    EXPECT_EQ(left, 5U);  // workspace.xml, its lock and three folders
}

}  // namespace
}  // namespace tessel::workbench

#include "workbench/project_name.h"

#include <gtest/gtest.h>

#include <string>

#include "tessel/error.h"

namespace tessel::workbench {
namespace {

TEST(ProjectName, MustBeAFolderName) {
    const std::string accepted[] = {"A", "Orders 2", "注文管理", ".hidden", "a.b", std::string(64, 'x')};
    for (const auto& name : accepted) EXPECT_NO_THROW(CheckProjectName(name)) << name;

    for (const char c : std::string_view("/\\:*?\"<>|\n\x7F\xFF\0", 13))
        EXPECT_THROW(CheckProjectName(std::string("a") + c + "b"), Error) << static_cast<int>(c);
    const std::string refused[] = {"", ".", "..", " a", "a ", "a.", std::string(65, 'x')};
    for (const auto& name : refused) EXPECT_THROW(CheckProjectName(name), Error) << name;
}

}  // namespace
}  // namespace tessel::workbench

#include "workbench/project_name.h"

#include <gtest/gtest.h>

#include <string>

#include "tessel/error.h"

namespace tessel::workbench {
namespace {

TEST(ProjectName, MustBeAFolderName) {
    const std::string accepted[] = {"A", "Orders 2", "注文管理", ".hidden", "a.b", std::string(64, 'x')};
    for (const auto& name : accepted) EXPECT_NO_THROW(CheckProjectName(name)) << name;

    const std::string refused[] = {"",      ".",
                                   "..",    "a/b",
                                   "a\\b",  "a:b",
                                   "a*",    "a?",
                                   "\"a\"", "<a",
                                   "a>",    "a|b",
                                   "a\n",   " a",
                                   "a ",    "a.",
                                   "\x7F",  std::string("a\0b", 3),
                                   "\xFF",  std::string(65, 'x')};
    for (const auto& name : refused) EXPECT_THROW(CheckProjectName(name), Error) << name;
}

}  // namespace
}  // namespace tessel::workbench

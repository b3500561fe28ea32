#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "columns.h"
#include "layout.h"
#include "tessel/vntws.h"
#include "texts.h"

namespace tessel::layout {

// A column as it is written into the schema.
struct NewColumn {
    std::string name;  // unlike the others' and the table's own
    std::int32_t typeID = 0;
    std::int32_t precision = 0;
    std::int32_t scale = 0;
    std::string typeText;
    std::string picture;  // as it is written
    std::string comment;
    Place place;
};

// Where columns go.
struct Target {
    std::int32_t tabID = 0;  // 0: a new table
    std::string name;        // of a new one: a free name
};

// The columns of the plan with their names and types as the workspace makes them in the table. A name of
// which nothing is left gets a remark and becomes "C".
[[nodiscard]] std::vector<NewColumn> PrepareColumns(VNTWS& workspace, const Target& target, Plan plan,
                                                    Remarks& remarks, Language language);

// The origin reference of a place: the file, from the workspace's folder on where it lies in that, and the
// line.
class Origins {
  public:
    Origins(const std::vector<std::string>& files, const std::string& workspaceFolder);
    [[nodiscard]] std::string Of(Place place) const;

  private:
    std::vector<std::string> files_;
};

// Adds the columns to the table, which is made first where it is a new one, at the place of its record.
// Returns its TabID. What the workspace refuses throws ErrorKind::Constraint, in the language.
std::int32_t ImportColumns(VNTWS& workspace, const Target& target, const std::vector<NewColumn>& columns,
                           const Origins& origins, Place recordPlace, Language language);

}  // namespace tessel::layout

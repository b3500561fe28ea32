#pragma once

#include <memory>
#include <string>

#include "tessel/add_on.h"

namespace tessel::layout {

// The tool that makes a table, or columns of one, of a COBOL copybook. Its parameter is what ReadOptions
// reads; without a file in it the tool asks. The result says what was imported and, where nothing was asked,
// what was not used.
class RecordLayout : public AddOn {
  public:
    Value Run(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
              const std::string& parameter) override;
};

}  // namespace tessel::layout

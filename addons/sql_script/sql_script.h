#pragma once

#include "tessel/add_on.h"

namespace tessel::sql_script {

// The bundled tool "SQL script": writes the statements that make the project's schema on a server, by default
// after asking which server and which file. The result says how much was written and where; it is Null when
// the user cancelled.
class SqlScript : public AddOn {
  public:
    Value Run(const std::shared_ptr<Object>& frontend, const std::shared_ptr<VNTWS>& workspace,
              const std::string& parameter) override;
};

}  // namespace tessel::sql_script

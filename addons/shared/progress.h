#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

#include "tessel/vntws.h"

namespace tessel::tool {

// The editor's progress bar for as long as this lives.
class Progress {
  public:
    Progress(VNTWS& workspace, const std::string& action, std::int32_t total) : workspace_(workspace) {
        workspace_.StartProgress(action, total);
    }
    ~Progress() {
        try {
            FinishStep();
            workspace_.FinishProgress();
        } catch (const std::exception&) {
            // Whatever ended the work is told; the bar is the least of it.
        }
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    // The step before it is done.
    void Step(const std::string& act, std::int32_t length) {
        FinishStep();
        workspace_.StartStep(act);
        length_ = length;
    }

  private:
    void FinishStep() {
        if (length_ > 0) workspace_.FinishStep(std::exchange(length_, 0));
    }

    VNTWS& workspace_;
    std::int32_t length_ = 0;  // of the step that goes on
};

}  // namespace tessel::tool

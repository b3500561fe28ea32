#pragma once

#include <memory>

#include "schema/component_state.h"

namespace tessel {

// The main window of a program without a screen: it draws nothing and remembers the reference text.
class HeadlessWindow : public ToolWindow {
  public:
    explicit HeadlessWindow(const ComponentState& state) : state_(state) {}

    void DrawTable(const std::string&, std::int32_t, const Value&, const Value&) override {}
    void RemoveTable(const std::string&) override {}
    void AddConnector(const std::string&, const std::string&, const std::string&,
                      const std::string&) override {}
    void SetConnectorText(const std::string&, const std::string&) override {}
    void RemoveConnector(const std::string&) override {}
    void StartProgress(const std::string&, std::int32_t) override {}
    void StartStep(const std::string&) override {}
    void FinishStep(std::int32_t) override {}
    void FinishProgress() override {}
    void ShowErrors(const std::vector<ErrorRow>&, const std::string&) override {}
    void RefreshBrowser() override {}
    void SelectTable(const std::string&) override {}
    std::string CVRL() const override { return cvrl_; }
    void SetCVRL(const std::string& value) override { cvrl_ = value; }

  private:
    const ComponentState& State() const override { return state_; }

    const ComponentState& state_;
    std::string cvrl_;
};

// Loads it as the main window is loaded: the type catalogue is read first.
[[nodiscard]] std::shared_ptr<ToolWindow> LoadHeadlessWindow(ComponentState& state);

}  // namespace tessel

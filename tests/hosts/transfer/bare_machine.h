#pragma once

#include <gtest/gtest.h>

#include "hosts/machine.h"

namespace foliant::hosts::transfer {

/// A machine with files and nothing else.
class BareMachine : public Machine {
  public:
    std::filesystem::path private_folder() const override { return {}; }
    bool has_printer(std::string_view) const override { return false; }
    bool is_pdf_printer(std::string_view) const override { return false; }
    std::string default_printer() const override { return {}; }
    void print(std::string_view, const std::filesystem::path&, std::string_view) override { FAIL(); }
    void show(Dialog&) override { FAIL(); }
    HostWindow open_window(std::string, std::function<void()>) override { return 0; }
    void close_window(HostWindow) override {}
    std::optional<std::string> setting(std::string_view, std::string_view) const override { return {}; }
};

}  // namespace foliant::hosts::transfer

#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/stage/stage.h"

namespace foliant::platform::stage {

class StageRegistry : public Registry {
  public:
    explicit StageRegistry(Stage& stage) : stage_(stage) {}
    std::int32_t open_key(RegistryKey key, const std::string& path, std::uint32_t access,
                          RegistryKey& opened) override;
    std::int32_t create_key(RegistryKey key, const std::string& path, std::uint32_t access,
                            RegistryKey& opened) override;
    std::int32_t query_size(RegistryKey key, const std::string& name, std::uint32_t& type,
                            std::uint32_t& size) override;
    std::int32_t query_data(RegistryKey key, const std::string& name, std::string& data) override;
    std::int32_t set_value(RegistryKey key, const std::string& name, std::uint32_t type,
                           std::string_view data) override;
    std::int32_t close_key(RegistryKey key) override;
    std::string text_of(std::string_view ansi) const override { return std::string(ansi); }
    std::string ansi_of(std::string_view text) const override { return std::string(text); }

  private:
    std::string path_of(RegistryKey key) const;
    bool exists(const std::string& path) const;
    RegistryKey handle_for(const std::string& path);
    const Stage::RegistryValue* find(RegistryKey key, const std::string& name) const;

    Stage& stage_;
    std::map<RegistryKey, std::string> open_;
    RegistryKey next_ = 1;
};

class StageFiles : public Files {
  public:
    explicit StageFiles(Stage& stage) : stage_(stage) {}
    char separator() const noexcept override { return stage_.separator; }
    std::int64_t length(const std::string& path) override;
    bool exists_in_current_folder(const std::string& name) override;
    void remove(const std::string& path) override;
    void make_folder(const std::string& path) override;
    std::unique_ptr<TextFile> create_text(const std::string& path, TextPurpose purpose) override;
    std::unique_ptr<Listing> list(const std::string& pattern) override;

  private:
    Stage& stage_;
};

class StageClock : public Clock {
  public:
    explicit StageClock(Stage& stage) : stage_(stage) {}
    void sleep(std::uint32_t milliseconds) override;
    void settle(std::uint32_t milliseconds) override { sleep(milliseconds); }
    float seconds_since_midnight() override;
    std::uint64_t random_seed() override;
    void pump_messages() override;

  private:
    Stage& stage_;
    std::size_t seeds_given_ = 0;
};

class StageWindows : public WindowManager {
  public:
    explicit StageWindows(Stage& stage) : stage_(stage) {}
    WindowHandle find_window(const std::string& caption) override;
    void close_window(WindowHandle window, const std::string& text) override;
    void type_text(const std::string& text) override;
    void press_enter() override;
    void message_box(const std::string& prompt, const std::string& title, std::uint32_t style) override;

  private:
    Stage& stage_;
    std::map<WindowHandle, std::string> found_;
};

class StagePrograms : public Programs {
  public:
    explicit StagePrograms(Stage& stage) : stage_(stage) {}
    void start(const std::string& command_line, WindowStyle style) override;

  private:
    Stage& stage_;
};

class StageShell : public Shell {
  public:
    explicit StageShell(Stage& stage) : stage_(stage) {}
    std::optional<std::string> special_folder(std::intptr_t owner, std::int32_t folder) override;
    std::string library_folder() override { return stage_.library_folder; }

  private:
    Stage& stage_;
};

class StageServers : public Servers {
  public:
    explicit StageServers(Stage& stage) : stage_(stage) {}
    automation::ObjectPtr create(std::string_view class_name) override;

  private:
    Stage& stage_;
};

class StagePrinters : public PrinterControl {
  public:
    explicit StagePrinters(Stage& stage) : stage_(stage) {}
    std::uint32_t platform_identifier() override;
    std::string default_printer() override;
    std::string profile_entry(const std::string& section, const std::string& key) override;
    void write_profile_entry(const std::string& section, const std::string& key,
                             const std::string& text) override;
    void announce_profile_change(const std::string& section) override;
    PrinterHandle open_printer(const std::string& name) override;
    std::optional<PrinterInfo> printer_info(PrinterHandle printer) override;
    bool set_printer_info(PrinterHandle printer, const PrinterInfo& info) override;
    void close_printer(PrinterHandle printer) override;

  private:
    Stage& stage_;
    std::map<PrinterHandle, std::string> open_;
};

struct Stage::Ports {
    explicit Ports(Stage& stage)
        : registry(stage),
          files(stage),
          clock(stage),
          windows(stage),
          programs(stage),
          shell(stage),
          servers(stage),
          printers(stage) {}

    StageRegistry registry;
    StageFiles files;
    StageClock clock;
    StageWindows windows;
    StagePrograms programs;
    StageShell shell;
    StageServers servers;
    StagePrinters printers;
};

}  // namespace foliant::platform::stage

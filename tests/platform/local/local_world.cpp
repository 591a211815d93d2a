// The local machine keeps what the ports promise.

#include <filesystem>
#include <gtest/gtest.h>
#include <memory>

#include "automation/coerce.h"
#include "platform/contract/world.h"
#include "platform/local/local_machine.h"
#include "support/scratch_folder.h"

namespace foliant::platform::local::test {
namespace {

namespace fs = std::filesystem;
using contract::PortContract;

/// An object as hosts have them.
class Collection : public automation::Object {
  public:
    explicit Collection(std::vector<std::string> texts) : texts_(std::move(texts)) {}

    automation::Value invoke(automation::Access, std::string_view member,
                             const automation::Arguments& arguments) override {
        if (member == "Count") return static_cast<std::int32_t>(texts_.size());
        return texts_.at(static_cast<std::size_t>(automation::to_int32(arguments.at(0).value)) - 1);
    }

  private:
    std::vector<std::string> texts_;
};

class LocalWorld : public contract::World {
  public:
    ~LocalWorld() override { fs::current_path(former_folder_); }

    Platform ports() override { return machine_.platform(); }
    std::string path(const std::string& name) const override { return work_ / name; }
    void put_file(const std::string& name) override { tests::write_file(path(name), "content"); }
    void put_hidden_file(const std::string& name) override { put_file("." + name); }
    void put_folder(const std::string& name) override { fs::create_directory(path(name)); }
    std::string content(const std::string& name) const override { return tests::read_file(path(name)); }
    void enter_folder() override { fs::current_path(work_.path()); }
    std::string install_program() override {
        machine_.programs().install("noter.exe", [this](std::string_view tail) { started_with_ = tail; });
        return "noter.exe";
    }
    std::string started_with() override { return started_with_; }
    automation::Value make_collection(const std::vector<std::string>& texts) override {
        return std::make_shared<Collection>(texts);
    }
    void put_window(const std::string& caption) override { machine_.open_window(caption, {}); }
    std::string typed() override {
        hosts::Dialog dialog{"Create PDF from Web Page",
                             {{"Edit", "", "former"}, {"Button", "Create", "", true, false, true}},
                             {},
                             false};
        try {
            machine_.show(dialog);
        } catch (const automation::Error&) {
            return "";  // Nobody has answered.
        }
        return dialog.controls[0].text + (dialog.accepted ? "\n" : "");
    }

  private:
    std::string started_with_;
    fs::path former_folder_ = fs::current_path();
    tests::ScratchFolder work_;
    tests::ScratchFolder settings_;
    tests::ScratchFolder temporary_;
    LocalMachine machine_{{.temporary_folder = temporary_.path(),
                           .configuration_folder = settings_.path(),
                           .hosts_folder = work_.path()}};
};

std::unique_ptr<contract::World> make_world() {
    return std::make_unique<LocalWorld>();
}

INSTANTIATE_TEST_SUITE_P(Local, PortContract, testing::Values(contract::WorldMaker{"Local", make_world}));

}  // namespace
}  // namespace foliant::platform::local::test

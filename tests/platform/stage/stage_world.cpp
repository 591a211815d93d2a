// The stage keeps what the ports promise.

#include <gtest/gtest.h>
#include <memory>
#include <utility>

#include "platform/contract/world.h"
#include "platform/stage/cast/cast.h"

namespace foliant::platform::stage {
namespace {

using contract::PortContract;

class StageWorld : public contract::World {
  public:
    StageWorld() {
        cast_usual_machine(stage_);
        stage_.folders.insert("C:\\Work");
        stage_.missing_classes.insert("No.SuchClass");
    }

    Platform ports() override { return stage_.platform(); }
    std::string path(const std::string& name) const override { return "C:\\Work\\" + name; }
    void put_file(const std::string& name) override {
        stage_.put_file(inside_ ? name : path(name));
        if (inside_) stage_.names_in_current_folder.insert(name);
    }
    void put_hidden_file(const std::string& name) override {
        put_file(name);
        stage_.files[path(name)].hidden = true;
    }
    void put_folder(const std::string& name) override { stage_.folders.insert(path(name)); }
    std::string content(const std::string& name) const override {
        return stage_.files.at(path(name)).content;
    }
    void enter_folder() override { inside_ = true; }
    std::string install_program() override {
        stage_.programs.insert("noter.exe");
        stage_.when_program_starts([this](const std::string& line) {
            started_with_ = line.substr(std::string("noter.exe ").size());
        });
        return "noter.exe";
    }
    std::string started_with() override { return started_with_; }
    automation::Value make_collection(const std::vector<std::string>& texts) override {
        automation::Array elements;
        elements.items.assign(texts.begin(), texts.end());
        stage_.answer("Collection._NewEnum", std::move(elements));
        return stage_.make_object("Collection");
    }
    void put_window(const std::string& caption) override { stage_.windows[caption] = 0; }
    std::string typed() override { return std::exchange(stage_.typed, {}); }

  private:
    Stage stage_;
    std::string started_with_;
    bool inside_ = false;
};

std::unique_ptr<contract::World> make_world() {
    return std::make_unique<StageWorld>();
}

INSTANTIATE_TEST_SUITE_P(Stage, PortContract, testing::Values(contract::WorldMaker{"Stage", make_world}));

}  // namespace
}  // namespace foliant::platform::stage

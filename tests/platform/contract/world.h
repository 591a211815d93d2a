#pragma once

#include <cstdint>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "automation/error.h"
#include "automation/object.h"
#include "platform/platform.h"
#include "support/error_of.h"

/// What the ports promise: one body of tests, run on every adapter. A difference between the stage and the
/// others would make every test on the stage worth less.
namespace foliant::platform::contract {

/// An outside world with a usual machine in it: Acrobat 6.0, its printers "Adobe PDF" and "Acrobat
/// Distiller", the window sender in the system folder, no class "No.SuchClass". And the means to put things
/// there from outside.
class World {
  public:
    World() = default;
    World(const World&) = delete;
    World& operator=(const World&) = delete;
    virtual ~World() = default;

    /// They live as long as this.
    virtual Platform ports() = 0;

    /// The path of an entry of a folder that is there, and empty at first.
    virtual std::string path(const std::string& name) const = 0;
    /// Puts a file there that has a length.
    virtual void put_file(const std::string& name) = 0;
    virtual void put_hidden_file(const std::string& name) = 0;
    virtual void put_folder(const std::string& name) = 0;
    /// The text in a file, in UTF-8.
    virtual std::string content(const std::string& name) const = 0;
    /// Makes that folder, with what will be put there, the current one.
    virtual void enter_folder() = 0;

    /// Installs a program that notes how it was started, and gives its bare name.
    virtual std::string install_program() = 0;
    /// What followed the blank after the name of that program when it was started.
    virtual std::string started_with() = 0;

    /// An outside object that holds these texts.
    virtual automation::Value make_collection(const std::vector<std::string>& texts) = 0;

    /// Puts up a top-level window that closes when it is told to.
    virtual void put_window(const std::string& caption) = 0;

    /// Readies a dialog for what will be typed, where it has to be there before.
    virtual void await_keys() {}
    /// What was typed into the dialog in place of what stood there, a line feed at the end for Enter.
    virtual std::string typed() = 0;
};

/// How to make the world of one adapter.
struct WorldMaker {
    const char* name;
    std::unique_ptr<World> (*make)();
};

inline void PrintTo(const WorldMaker& maker, std::ostream* out) {
    *out << maker.name;
}

/// Each adapter runs all of these tests: INSTANTIATE_TEST_SUITE_P(Local, PortContract, Values(...)).
class PortContract : public testing::TestWithParam<WorldMaker> {
  protected:
    std::unique_ptr<World> world = GetParam().make();
    Platform ports = world->ports();
};

}  // namespace foliant::platform::contract

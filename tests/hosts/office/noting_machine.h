#pragma once

#include "hosts/noting_machine.h"
#include "hosts/office/scratch.h"

namespace foliant::hosts::office::test {

/// The machine whose private folder is the one of the engine, of which a process has one.
class NotingMachine : public tests::NotingMachine {
  public:
    std::filesystem::path private_folder() const override { return engine_folder(); }
};

}  // namespace foliant::hosts::office::test

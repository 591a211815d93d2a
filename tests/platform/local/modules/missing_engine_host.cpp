// A host whose engine is not on the machine: its module does not load, as one whose library is gone does not.

#include "hosts/module.h"

extern "C" const foliant::hosts::Module* function_of_an_engine_that_is_not_installed();

extern "C" const foliant::hosts::Module* foliant_host_module() {
    return function_of_an_engine_that_is_not_installed();
}

#include "hosts/office/office_module.h"

#include "hosts/built_module.h"

namespace foliant::hosts::office::test {

const Module& office_module() {
    static const Module& module = tests::built_module(OFFICE_MODULE);
    return module;
}

}  // namespace foliant::hosts::office::test

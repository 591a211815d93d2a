// The program that protects a PDF, in a process of its own: the PDF is what a stranger's PostScript has
// become. Its arguments are a command of protocol.h and the process id of its parent; EngineProcess starts
// it.

#include <cstdio>
#include <cstdlib>
#include <exception>

#include "hosts/distiller/engine/confinement.h"
#include "hosts/distiller/engine/record_writer.h"
#include "hosts/distiller/protector/protect_pdf.h"
#include "hosts/distiller/security_record.h"

int main(int argc, char** argv) {
    using namespace foliant::hosts::distiller;
    if (argc != 3) {
        std::fputs("This program is a part of Foliant and not meant to be run by hand.\n", stderr);
        return EXIT_FAILURE;
    }
    // All its files are open already.
    engine::confine(std::strtol(argv[2], nullptr, 10), {});
    try {
        protector::protect_pdf(engine::input_descriptor, engine::output_descriptor,
                               read_security(engine::settings_descriptor));
        engine::send(engine::Record::done, "");
    } catch (const std::exception& problem) {
        engine::send(engine::Record::failed, problem.what());
    }
    std::_Exit(EXIT_SUCCESS);
}

// The program that protects a PDF, in a process of its own: the PDF is what a stranger's PostScript has
// become. EngineProcess starts it.

#include <cstdlib>
#include <exception>
#include <new>

#include "hosts/distiller/engine/confinement.h"
#include "hosts/distiller/engine/record_writer.h"
#include "hosts/distiller/protector/protect_pdf.h"
#include "hosts/distiller/security_record.h"

int main(int argc, char** argv) {
    using namespace foliant::hosts::distiller;
    const engine::Orders orders = engine::take_orders(argc, argv);
    // All its files are open already.
    engine::confine(orders, {});
    try {
        protector::protect_pdf(engine::input_descriptor, engine::output_descriptor,
                               read_security(engine::settings_descriptor));
        engine::send(engine::Record::done, "");
    } catch (const std::bad_alloc&) {
        engine::send(engine::Record::failed, "it needs more memory than a job may take");
    } catch (const std::exception& problem) {
        engine::send(engine::Record::failed, problem.what());
    }
    std::_Exit(EXIT_SUCCESS);
}

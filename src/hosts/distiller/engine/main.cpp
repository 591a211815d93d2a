// The program in which Ghostscript runs, one job per process. EngineProcess starts it.

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <ghostscript/iapi.h>
#include <string>
#include <string_view>
#include <unistd.h>

#include "hosts/containment/usual_files.h"
#include "hosts/distiller/engine/confinement.h"
#include "hosts/distiller/engine/interpreter.h"
#include "hosts/distiller/engine/job_program.h"
#include "hosts/distiller/engine/record_writer.h"

namespace foliant::hosts::distiller::engine {
namespace {

/// "10.00.0"; the library gives 10000.
std::string version() {
    gsapi_revision_t revision = {};
    if (gsapi_revision(&revision, sizeof revision) != 0) return "unknown";
    const long number = revision.revision;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%ld.%02ld.%ld", number / 1000, number / 10 % 100, number % 10);
    return text.data();
}

/// What the workspace's links point to, which is what the job is about.
containment::Paths files_of_the_job() {
    containment::Paths files;
    for (const auto& entry : std::filesystem::directory_iterator(input_folder))
        files.push_back(entry.path());
    return files;
}

/// Ghostscript's own resources, fonts, colour profiles and the usual paper besides; nothing else of the
/// machine is read, and nothing but the output and temporary data written.
containment::Policy distilling() {
    using namespace containment;
    containment::Policy policy;
    policy.may_read =
        files_of_the_job() + system_libraries() + fonts() + locales() + empty_devices() +
        Paths{"/var/lib/ghostscript", "/usr/share/cups/fonts", "/usr/share/color", "/etc/papersize"};
    policy.may_write = {scratch_folder, output_file};
    return policy;
}

bool exists(const char* path) {
    return ::access(path, F_OK) == 0;
}

void distill() {
    Interpreter interpreter;
    bool well = interpreter.run(setup_program());
    if (well && exists(options_file)) {
        well = interpreter.run(running_program(options_file));
        if (well && !interpreter.has_quit()) send(Record::options_set, "");
    }
    if (well && !interpreter.has_quit()) well = interpreter.run(running_program(input_name(0)));

    const int pages = interpreter.finish();
    if (!well) return send(Record::failed, "");
    if (pages < 0) return send(Record::failed, "Ghostscript could not write the PDF");
    send(Record::done, std::to_string(pages));
}

}  // namespace
}  // namespace foliant::hosts::distiller::engine

int main(int argc, char** argv) {
    using namespace foliant::hosts::distiller;
    const engine::Orders orders = engine::take_orders(argc, argv);
    if (orders.command == engine::version_command) {
        engine::confine(orders, {});
        engine::send(engine::Record::done, engine::version());
    } else {
        engine::confine(orders, engine::distilling());
        engine::distill();
    }
    std::_Exit(EXIT_SUCCESS);  // the interpreter's memory goes with the process
}

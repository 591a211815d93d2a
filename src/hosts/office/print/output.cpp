#include "hosts/office/print/output.h"

#include "hosts/write_failure.h"

namespace foliant::hosts::office {

void write_output(const std::filesystem::path& target, Machine& machine, const Application& application,
                  const std::function<std::string()>& make_content) {
    try {
        const std::unique_ptr<OutputFile> file = machine.make_output(target);
        file->write(make_content());
        file->commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application.name, failure);
    }
}

}  // namespace foliant::hosts::office

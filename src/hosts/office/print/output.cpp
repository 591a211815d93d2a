#include "hosts/office/print/output.h"

#include "hosts/pending_file.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::office {

void write_output(const std::filesystem::path& target, const Application& application,
                  const std::function<std::string()>& make_content) {
    try {
        PendingFile file(target);
        file.write(make_content());
        file.commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application.name, failure);
    }
}

}  // namespace foliant::hosts::office

#include "hosts/office/support.h"

#include "hosts/office/office_engine.h"

namespace foliant::hosts::office::test {

std::unique_ptr<TextDocument> open(const std::filesystem::path& path, const std::string& open_password,
                                   const std::string& write_password) {
    return OfficeEngine::start(engine_folder()).open(path, open_password, write_password);
}

}  // namespace foliant::hosts::office::test

#include "hosts/office/support.h"

#include "hosts/office/noting_machine.h"
#include "hosts/office/word/open_document.h"

namespace foliant::hosts::office::test {

std::unique_ptr<Document> open(const std::filesystem::path& path, const std::string& open_password,
                               const std::string& write_password) {
    static NotingMachine machine;
    return open_document(machine, path, open_password, write_password);
}

}  // namespace foliant::hosts::office::test

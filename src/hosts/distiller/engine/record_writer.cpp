#include "hosts/distiller/engine/record_writer.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace foliant::hosts::distiller::engine {

void send(Record kind, std::string_view text) {
    std::string record(1, static_cast<char>(kind));
    record += text.substr(0, text.find('\0'));
    record += '\0';
    std::string_view rest = record;
    while (!rest.empty()) {
        const auto written = ::write(record_descriptor, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) std::_Exit(EXIT_FAILURE);
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace foliant::hosts::distiller::engine

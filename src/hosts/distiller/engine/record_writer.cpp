#include "hosts/distiller/engine/record_writer.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace foliant::hosts::distiller::engine {

void send(Record kind, std::string_view text) {
    text = text.substr(0, longest_record);
    const RecordHead head{static_cast<std::uint32_t>(kind), static_cast<std::uint32_t>(text.size())};
    std::string record(sizeof head, '\0');
    std::memcpy(record.data(), &head, sizeof head);
    record += text;
    std::string_view rest = record;
    while (!rest.empty()) {
        const auto written = ::write(record_descriptor, rest.data(), rest.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) std::_Exit(EXIT_FAILURE);
        rest.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace foliant::hosts::distiller::engine

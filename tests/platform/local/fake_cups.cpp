// A print spooler for the tests, under the name of the real one's library: two queues, "Office" and "Jammed",
// a default queue named by $FAKE_CUPS_DEFAULT, and a journal of what was asked in $FAKE_CUPS_JOURNAL.

#include <cstdlib>
#include <cstring>
#include <cups/cups.h>
#include <fstream>
#include <string>

namespace {

void note(const std::string& line) {
    if (const char* journal = std::getenv("FAKE_CUPS_JOURNAL"))
        std::ofstream(journal, std::ios::app) << line << "\n";
}

}  // namespace

extern "C" {

cups_dest_t* cupsGetNamedDest(http_t*, const char* name, const char*) {
    if (name != nullptr) note(std::string("find ") + name);
    const char* queue = name != nullptr ? name : std::getenv("FAKE_CUPS_DEFAULT");
    if (queue == nullptr || (std::strcmp(queue, "Office") != 0 && std::strcmp(queue, "Jammed") != 0))
        return nullptr;
    auto* found = static_cast<cups_dest_t*>(std::calloc(1, sizeof(cups_dest_t)));
    found->name = ::strdup(queue);
    return found;
}

int cupsGetDests2(http_t*, cups_dest_t** queues) {
    *queues = static_cast<cups_dest_t*>(std::calloc(2, sizeof(cups_dest_t)));
    (*queues)[0].name = ::strdup("Jammed");
    (*queues)[1].name = ::strdup("Office");
    return 2;
}

void cupsFreeDests(int count, cups_dest_t* queues) {
    for (int i = 0; i < count; ++i)
        std::free(queues[i].name);
    std::free(queues);
}

int cupsPrintFile(const char* name, const char* file, const char* title, int, cups_option_t*) {
    note(std::string("print ") + name + " " + file + " " + title);
    return std::strcmp(name, "Office") == 0 ? 7 : 0;
}

const char* cupsLastErrorString() {
    return "Out of paper";
}
}

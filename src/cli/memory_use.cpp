#include "cli/memory_use.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace foliant::cli {

namespace fs = std::filesystem;

namespace {

fs::path entry_of(pid_t process) {
    return fs::path("/proc") / std::to_string(process);
}

/// The sum of the fields of a file of lines such as "RssAnon:     124 kB", in bytes.
std::uint64_t sum_of(const fs::path& path, const std::array<std::string_view, 2>& fields) {
    std::uint64_t kibibytes = 0;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        for (const std::string_view field : fields) {
            if (line.starts_with(field)) kibibytes += std::strtoull(line.c_str() + field.size(), nullptr, 10);
        }
    }
    return kibibytes * 1024;
}

std::uint64_t quick_use(pid_t process) {
    return sum_of(entry_of(process) / "status", {"RssAnon:", "RssShmem:"});
}

/// Pages that several processes have are divided among them.
std::uint64_t precise_use(pid_t process) {
    const std::uint64_t use = sum_of(entry_of(process) / "smaps_rollup", {"Pss_Anon:", "Pss_Shmem:"});
    return use > 0 ? use : quick_use(process);
}

/// The parent of every process.
std::map<pid_t, pid_t> parents() {
    std::map<pid_t, pid_t> found;
    std::error_code ended;
    for (fs::directory_iterator entry("/proc", ended), end; entry != end; entry.increment(ended)) {
        const auto process = static_cast<pid_t>(std::atoi(entry->path().filename().c_str()));
        if (process <= 0) continue;
        std::ifstream file(entry->path() / "stat");
        std::string line;
        std::getline(file, line);
        // "17 (name) S 1 ...", and the name may hold anything.
        const std::size_t after_name = line.rfind(") ");
        if (after_name != std::string::npos) found[process] = std::atoi(line.c_str() + after_name + 4);
    }
    return found;
}

/// Looks at every process of the machine, which takes a millisecond or more.
std::vector<pid_t> found_by_parents(pid_t process) {
    const auto parent_of = parents();
    std::vector<pid_t> found{process};
    for (std::size_t i = 0; i < found.size(); ++i) {
        for (const auto& [child, parent] : parent_of) {
            if (parent == found[i]) found.push_back(child);
        }
    }
    return found;
}

/// By the kernel's own lists, one for each thread.
std::vector<pid_t> found_by_children(pid_t process) {
    std::vector<pid_t> found{process};
    for (std::size_t i = 0; i < found.size(); ++i) {
        std::error_code ended;
        for (fs::directory_iterator thread(entry_of(found[i]) / "task", ended), end; thread != end;
             thread.increment(ended)) {
            std::ifstream children(thread->path() / "children");
            for (pid_t child = 0; children >> child;)
                found.push_back(child);
        }
    }
    return found;
}

/// Not every kernel keeps those lists.
bool kernel_lists_children() {
    const fs::path own = entry_of(getpid());
    return fs::exists(own / "task" / own.filename() / "children");
}

std::vector<pid_t> with_descendants(pid_t process) {
    static const bool listed = kernel_lists_children();
    return listed ? found_by_children(process) : found_by_parents(process);
}

}  // namespace

std::uint64_t usual_memory_limit() {
    constexpr std::uint64_t enough = 2ULL * 1024 * 1024 * 1024;
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long page = sysconf(_SC_PAGESIZE);
    if (pages <= 0 || page <= 0) return enough;
    return std::min(enough, static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page) / 2);
}

std::uint64_t memory_use(pid_t process, std::uint64_t precise_above) {
    const std::vector<pid_t> processes = with_descendants(process);
    std::uint64_t use = 0;
    for (const pid_t each : processes)
        use += quick_use(each);
    if (use <= precise_above) return use;
    use = 0;
    for (const pid_t each : processes)
        use += precise_use(each);
    return use;
}

}  // namespace foliant::cli

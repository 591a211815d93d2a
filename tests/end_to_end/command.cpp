#include "end_to_end/command.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace foliant::end_to_end {

namespace fs = std::filesystem;

namespace {

pid_t spawn(const std::vector<std::string>& words, const fs::path& folder, const fs::path& private_folder) {
    const pid_t process = fork();
    if (process != 0) return process;
    setenv("HOME", (private_folder / "home").c_str(), 1);
    setenv("TMPDIR", (private_folder / "tmp").c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    const auto redirect = [&](const char* name, int target) {
        const int file = open((private_folder / name).c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        dup2(file, target);
        close(file);
    };
    redirect("stdout", STDOUT_FILENO);
    redirect("stderr", STDERR_FILENO);
    if (chdir(folder.c_str()) != 0) _exit(127);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

std::string field(const std::string& text, const std::string& name) {
    const std::size_t at = text.find(name);
    if (at == std::string::npos) return {};
    const std::size_t begin = text.find_first_not_of(' ', at + name.size());
    return text.substr(begin, text.find('\n', begin) - begin);
}

}  // namespace

Workshop::Workshop() {
    fs::create_directory(private_ / "home");
    fs::create_directory(private_ / "tmp");
}

std::string Workshop::command_without(const std::string& file) const {
    namespace fs = std::filesystem;
    const fs::path built = fs::path(FOLIANT_COMMAND).parent_path();
    const fs::path folder = private_ / "installed";
    fs::create_directories(folder);
    fs::copy_file(FOLIANT_COMMAND, folder / "foliant");
    for (const auto& entry : fs::recursive_directory_iterator(built / "hosts")) {
        const fs::path copy = folder / entry.path().lexically_relative(built);
        if (entry.is_directory() || entry.path() == built / "hosts" / file) continue;
        fs::create_directories(copy.parent_path());
        fs::create_symlink(entry.path(), copy);
    }
    return folder / "foliant";
}

pid_t Workshop::start(const std::vector<std::string>& words) const {
    std::vector<std::string> all{FOLIANT_COMMAND};
    all.insert(all.end(), words.begin(), words.end());
    return spawn(all, folder(), private_.path());
}

Finished Workshop::finish(pid_t process) const {
    int status = 0;
    waitpid(process, &status, 0);
    Finished finished;
    finished.exit_code = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    finished.output = tests::read_file(private_ / "stdout");
    finished.errors = tests::read_file(private_ / "stderr");
    return finished;
}

Finished Workshop::foliant(const std::vector<std::string>& words) const {
    return finish(start(words));
}

Finished Workshop::run(const std::vector<std::string>& words) const {
    return finish(spawn(words, folder(), private_.path()));
}

std::set<std::string> Workshop::files() const {
    const tests::Names names = tests::names_in(folder());
    return {names.begin(), names.end()};
}

std::string Workshop::leftovers() const {
    std::string names;
    for (const auto& entry : fs::recursive_directory_iterator(private_ / "tmp")) {
        names += entry.path().string() + "\n";
    }
    return names;
}

int Workshop::survivors() const {
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        if (tests::read_file(entry.path() / "environ").find((private_ / "tmp").string()) != std::string::npos)
            ++count;
    }
    return count;
}

bool Workshop::is_clean_soon() const {
    for (int i = 0; i < 100; ++i) {
        if (survivors() == 0 && leftovers().empty()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}

int Workshop::pages(const std::string& pdf) const {
    const std::string count = field(run({"pdfinfo", pdf}).output, "Pages:");
    return count.empty() ? 0 : std::stoi(count);
}

std::string Workshop::text(const std::string& pdf) const {
    return run({"pdftotext", pdf, "-"}).output;
}

std::string Workshop::page_size(const std::string& pdf) const {
    const std::string size = field(run({"pdfinfo", pdf}).output, "Page size:");
    return size.substr(0, size.find(" pts"));
}

std::string missing_host(const std::string& name) {
    static const std::string table = Workshop().foliant({"hosts"}).output;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with(name + " ")) continue;
        const bool there = line.find(" is ") == std::string::npos && line.find("not ") == std::string::npos;
        return there ? "" : line;
    }
    return name + " is not in the list of hosts:\n" + table;
}

}  // namespace foliant::end_to_end

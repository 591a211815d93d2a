#include "hosts/autocad/dwg_reader.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sstream>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "hosts/autocad/drawing/read_file.h"
#include "posix/file_descriptor.h"

namespace foliant::hosts::autocad {
namespace {

constexpr int cannot_read = 3;
constexpr int unknown_option = 9;  // as Node.js says it

/// What Node.js is to do: the module's own files are in memory. That says in its bytes that it may grow to 4 GiB,
/// which are reserved as far as the limits go, and nothing is left for others; 1.25 GiB will do.
constexpr const char* script = R"js(
import fs from 'node:fs';
const [library, input, output] = process.argv.slice(1);
const wasmBinary = fs.readFileSync(new URL('libredwg-web.wasm', library));
const limits = wasmBinary.indexOf(Buffer.from([5, 8, 1, 1, 0x80, 0x80, 1, 0x80, 0x80, 4]));
if (limits > 0 && limits < 100_000) wasmBinary.set([0x80, 0xA0, 1], limits + 7);
const { default: createModule } = await import(library);
const module = await createModule({ wasmBinary, print() {}, printErr() {} });
module.FS.writeFile('in.dwg', fs.readFileSync(input));
let problem = 0;
try {
    problem = module.dwg_write_dxf('in.dwg', 'out.dxf');
} catch {
    problem = -1;
}
// This version of LibreDWG writes the layers as if all of them were off.
const layerType = 51;
const hidden = [];
try {
    const { data } = module.dwg_read_file('in.dwg');
    for (let i = 0; i < module.dwg_get_num_objects(data); ++i) {
        const object = module.dwg_get_object(data, i);
        if (module.dwg_object_get_fixedtype(object) !== layerType) continue;
        const layer = module.dwg_object_to_object_tio(object);
        const value = (name) => module.dwg_dynapi_entity_value(layer, name).data;
        if (value('off')) hidden.push(value('name'));
    }
} catch {
    problem = -1;
}
if (problem !== 0 || !module.FS.analyzePath('out.dxf').exists) process.exit(3);
fs.writeFileSync(output, module.FS.readFile('out.dxf'));
fs.writeFileSync(output + '.off', hidden.join('\n'));
)js";

/// As system calls take them, with a null at the end.
std::vector<char*> as_words(std::vector<std::string>& texts) {
    std::vector<char*> words;
    words.reserve(texts.size() + 1);
    for (std::string& text : texts)
        words.push_back(text.data());
    words.push_back(nullptr);
    return words;
}

[[noreturn]] void run(char* const* words, char* const* variables, pid_t parent) noexcept {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(1);
    constexpr rlim_t longest = 120;  // seconds of computing; the largest drawings take a few
    const rlimit time{longest, longest};
    ::setrlimit(RLIMIT_CPU, &time);
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGPIPE, SIG_DFL);
    ::execve(words[0], words, variables);
    ::_exit(127);
}

int wait_for(pid_t process) {
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR) throw std::system_error(errno, std::generic_category(), "cannot wait");
    return status;
}

void require_success(int status, const std::filesystem::path& program) {
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return;
    if (WIFEXITED(status) && WEXITSTATUS(status) == unknown_option)
        throw DwgFailure("takes Node.js 20.15 or later to read, and " + program.string() +
                         " is older. Install a newer one as /usr/local/bin/node");
    if (WIFEXITED(status) && WEXITSTATUS(status) == cannot_read)
        throw DwgFailure("is damaged, or of a release that LibreDWG cannot read");
    if (WIFSIGNALED(status) && (WTERMSIG(status) == SIGXCPU || WTERMSIG(status) == SIGKILL))
        throw DwgFailure("takes LibreDWG too long to read");
    throw DwgFailure("makes LibreDWG fail");
}

/// What is in a file, which goes.
std::string taken(const std::filesystem::path& path) {
    const posix::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) throw DwgFailure("makes LibreDWG fail");
    std::filesystem::remove(path);
    return read_file(file.get());
}

}  // namespace

std::optional<DwgReader> find_dwg_reader() {
    // One that was installed beside the system's is there because that is too old.
    constexpr std::array places{"/usr/local/bin/node", "/usr/bin/node", "/usr/bin/nodejs"};
    const auto program =
        std::ranges::find_if(places, [](const char* place) { return ::access(place, X_OK) == 0; });
    const std::filesystem::path library =
        std::filesystem::path(FOLIANT_LIBREDWG) / "wasm" / "libredwg-web.js";
    if (program == places.end() || ::access(library.c_str(), R_OK) != 0) return std::nullopt;
    // Debian's Node.js keeps parts of itself there.
    return DwgReader{*program,
                     library,
                     {FOLIANT_LIBREDWG, "/usr/share/nodejs", "/usr/lib/nodejs", "/etc/ssl/openssl.cnf"}};
}

DwgContent read_dwg(const DwgReader& reader, const std::filesystem::path& dwg,
                    const std::filesystem::path& folder) {
    const std::filesystem::path output = folder / "drawing.dxf";
    // WebAssembly reserves more room than the limits allow unless it is told to look at each access, and its
    // best code, for a library of which a drawing needs a part, takes many times longer to make than to run.
    std::vector<std::string> texts{reader.program,
                                   "--disable-wasm-trap-handler",
                                   "--liftoff-only",
                                   "--wasm-lazy-compilation",
                                   "--max-old-space-size=512",
                                   "--input-type=module",
                                   "--eval",
                                   script,
                                   "--",
                                   "file://" + reader.library.string(),
                                   dwg,
                                   output};
    std::vector<std::string> variables{"HOME=" + folder.string(), "TMPDIR=" + folder.string(), "LANG=C.UTF-8",
                                       "MALLOC_ARENA_MAX=2"};
    const std::vector<char*> words = as_words(texts);
    const std::vector<char*> variable_words = as_words(variables);
    const pid_t parent = ::getpid();
    const pid_t process = ::fork();
    if (process < 0) throw std::system_error(errno, std::generic_category(), "cannot start a process");
    if (process == 0) run(words.data(), variable_words.data(), parent);
    require_success(wait_for(process), reader.program);
    DwgContent content{.dxf = taken(output), .layers_off = {}};
    std::istringstream names(taken(output.string() + ".off"));
    for (std::string name; std::getline(names, name);)
        content.layers_off.insert(folded(name));
    return content;
}

}  // namespace foliant::hosts::autocad

// What the kernel is asked for while a document is converted, as strace sees it.

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "end_to_end/command.h"

namespace foliant::end_to_end {
namespace {

/// The system calls of one process, from the moment that it was contained.
struct Contained {
    std::string program;
    std::vector<std::string> calls;
};

/// The first argument in quotes, or "".
std::string path_in(const std::string& call) {
    const auto begin = call.find('"');
    if (begin == std::string::npos) return {};
    return call.substr(begin + 1, call.find('"', begin + 1) - begin - 1);
}

bool succeeded(const std::string& call) {
    return call.find(" = -1 ") == std::string::npos && call.find("unfinished") == std::string::npos;
}

bool starts_thread(const std::string& call) {
    return call.starts_with("clone(") && call.find("CLONE_THREAD") != std::string::npos && succeeded(call);
}

class Trace : public testing::Test {
  protected:
    void SetUp() override {
        REQUIRE_HOST("Acrobat Distiller");
        if (shop.run({"strace", "-V"}).exit_code != 0) {
            if (std::getenv("FOLIANT_REQUIRE_ENGINES") != nullptr) FAIL() << "Install the package strace.";
            GTEST_SKIP() << "Install the package strace.";
        }
        if (shop.run({"strace", "-o", "/dev/null", "true"}).exit_code != 0)
            GTEST_SKIP() << "Nothing may be traced here.";
    }

    /// Runs `foliant` with these words; what it asks of the system, in strace's words.
    std::string asked_of_the_system(const std::string& call, const std::vector<std::string>& words) {
        std::vector<std::string> all = {"strace",        "-f",           "-o", "asked", "-e",
                                        "trace=" + call, FOLIANT_COMMAND};
        all.insert(all.end(), words.begin(), words.end());
        EXPECT_EQ(shop.run(all).exit_code, 0);
        return shop.read("asked");
    }

    /// Runs `foliant` with these words; every process that was contained meanwhile.
    std::vector<Contained> contained_processes(const std::vector<std::string>& words) {
        std::vector<std::string> all = {"strace",       "-ff",
                                        "-s",           "4096",
                                        "-o",           shop.path("trace").string(),
                                        "-e",           "trace=%file,%process,%network,seccomp",
                                        FOLIANT_COMMAND};
        all.insert(all.end(), words.begin(), words.end());
        const Finished call = shop.run(all);
        EXPECT_EQ(call.exit_code, 0) << call.errors;
        std::vector<Contained> found;
        for (const std::string& name : shop.files()) {
            if (!name.starts_with("trace.")) continue;
            Contained process = after_containment(shop.path(name));
            add_threads(process);
            if (!process.calls.empty()) found.push_back(std::move(process));
        }
        return found;
    }

    Workshop shop;

  private:
    /// What the threads did that the process has started since it was contained.
    void add_threads(Contained& process) const {
        for (std::size_t i = 0; i < process.calls.size(); ++i) {
            const std::string call = process.calls[i];  // the list grows meanwhile
            if (!starts_thread(call)) continue;
            const std::string number = call.substr(call.rfind(' ') + 1);
            std::ifstream lines(shop.path("trace." + number));
            for (std::string line; std::getline(lines, line);)
                process.calls.push_back(line);
        }
    }

    static Contained after_containment(const std::filesystem::path& trace) {
        Contained process;
        bool contained = false;
        std::ifstream lines(trace);
        for (std::string line; std::getline(lines, line);) {
            if (line.starts_with("execve("))
                process.program = std::filesystem::path(path_in(line)).filename();
            if (contained) process.calls.push_back(line);
            contained = contained || line.starts_with("seccomp(SECCOMP_SET_MODE_FILTER");
        }
        return process;
    }
};

/// What reading PostScript is allowed to open, apart from the working folder, which is the current one.
constexpr const char* resources[] = {
    "/usr/share/ghostscript/",
    "/var/lib/ghostscript/",
    "/usr/share/cups/fonts",
    "/usr/share/color/",
    "/usr/share/fonts",
    "/usr/local/share/fonts",
    "/usr/share/fontconfig/",
    "/etc/fonts/",
    "/var/cache/fontconfig",
    "/usr/share/poppler/",
    "/usr/share/zoneinfo/",
    "/etc/localtime",
    "/etc/papersize",
    "/lib/",
    "/usr/lib/",
    "/etc/ld.so.cache",
    "/dev/null",
    "/dev/urandom",
};

void expect_within_policy(const Contained& process) {
    for (const std::string& call : process.calls) {
        const bool starts = call.starts_with("execve") || call.starts_with("clone") ||
                            call.starts_with("fork") || call.starts_with("vfork");
        const bool connects = call.starts_with("socket") || call.starts_with("connect");
        if (starts || connects) ADD_FAILURE() << process.program << ": " << call;
        const bool opens = call.starts_with("open") || call.starts_with("creat") ||
                           call.starts_with("unlink") || call.starts_with("rename") ||
                           call.starts_with("link") || call.starts_with("mkdir");
        const std::string path = path_in(call);
        if (!opens || !succeeded(call) || !path.starts_with("/")) {
            EXPECT_EQ(path.find(".."), std::string::npos) << call;
            continue;
        }
        const bool known = std::any_of(std::begin(resources), std::end(resources),
                                       [&path](const char* place) { return path.starts_with(place); });
        EXPECT_TRUE(known) << process.program << ": " << call;
    }
}

TEST_F(Trace, PostScriptIsReadWithNothingBeyondThePolicy) {
    shop.write("in.ps",
               "%!PS\n/Times-Roman findfont 24 scalefont setfont 72 700 moveto (Text) show\n"
               "/DejaVuSans findfont 24 scalefont setfont 72 600 moveto (Text) show\n"
               "{ (/etc/passwd) (r) file } stopped clear { (/etc/passwd) run } stopped clear\n"
               "{ (%pipe%id) (r) file } stopped clear (/etc/*) { pop } 200 string filenameforall\n"
               "showpage\n");
    const auto processes = contained_processes({"CreatePDFfromPS", "out.pdf", "in.ps", "--apply-security"});
    std::set<std::string> programs;
    for (const Contained& process : processes) {
        programs.insert(process.program);
        expect_within_policy(process);
    }
    EXPECT_EQ(programs, (std::set<std::string>{"ghostscript-engine", "qpdf-protector"}));
}

TEST_F(Trace, FontsAreThereForTextAndNotForCountingPages) {
    REQUIRE_HOST("Acrobat");
    shop.write("a.pdf",
               "%PDF-1.4\n1 0 obj << /Type /Catalog /Pages 2 0 R >> endobj\n"
               "2 0 obj << /Type /Pages /Count 1 /Kids [3 0 R] >> endobj\n"
               "3 0 obj << /Type /Page /Parent 2 0 R /MediaBox [0 0 9 9] >> endobj\n"
               "trailer << /Size 4 /Root 1 0 R >>\n%%EOF\n");
    const auto looks_at_fonts = [&](const std::vector<std::string>& words) {
        contained_processes(words);
        bool looks = false;
        for (const std::string& name : shop.files()) {
            if (!name.starts_with("trace.")) continue;
            looks = looks || shop.read(name).find("\"/etc/fonts") != std::string::npos;
            std::filesystem::remove(shop.path(name));
        }
        return looks;
    };
    EXPECT_FALSE(looks_at_fonts({"GetNumPagesPDF", "a.pdf"}));
    EXPECT_TRUE(looks_at_fonts({"CreateTextfileFromPDF", "a.pdf", "a.txt"}));
}

TEST_F(Trace, ACallAndAHostThatTakeTurnsDoSoOnOneProcessor) {
    REQUIRE_HOST("Acrobat");
    shop.run({"gs", "-q", "-sDEVICE=pdfwrite", "-o", "a.pdf", "-c", "showpage"});
    const auto chooses_a_processor = [&](const std::vector<std::string>& words) {
        return asked_of_the_system("sched_setaffinity", words).find("sched_setaffinity(0, ") !=
               std::string::npos;
    };
    EXPECT_TRUE(chooses_a_processor({"GetNumPagesPDF", "a.pdf"}));
    EXPECT_FALSE(chooses_a_processor({"CreateTextfileFromPDF", "a.pdf", "a.txt"})) << "text is read on two";
}

TEST_F(Trace, ACallThatNeedsNoFolderMakesNone) {
    REQUIRE_HOST("Acrobat");
    for (const char* const file : {"a.pdf", "b.pdf"})
        shop.run({"gs", "-q", "-sDEVICE=pdfwrite", "-o", file, "-c", "showpage"});
    EXPECT_EQ(asked_of_the_system("mkdir", {"GetNumPagesPDF", "a.pdf"}).find("mkdir("), std::string::npos);
    EXPECT_EQ(
        asked_of_the_system("mkdir", {"CreatePDFfromMultiPDF", "c.pdf", "a.pdf", "b.pdf"}).find("mkdir("),
        std::string::npos);
    EXPECT_NE(asked_of_the_system("mkdir", {"CreateTextfileFromPDF", "a.pdf", "a.txt"}).find("mkdir("),
              std::string::npos);
}

/// What LibreOffice may open besides its document and its private folder.
constexpr const char* office_resources[] = {
    "/usr/lib/libreoffice/", "/etc/libreoffice/", "/usr/share/libreoffice/", "/usr/share/liblangtag/",
    "/usr/share/hunspell",   "/usr/share/hyphen", "/usr/share/mythes",
};

/// Whether a call that succeeded is one that the policy of Word's host has room for.
bool is_office_business(const std::string& call, const std::vector<std::string>& own) {
    if (starts_thread(call)) return true;
    for (const char* never : {"execve", "clone", "fork", "vfork", "socket(", "connect", "bind", "sendto"})
        if (call.starts_with(never)) return false;
    const bool opens = call.starts_with("open") || call.starts_with("creat") || call.starts_with("unlink") ||
                       call.starts_with("rename") || call.starts_with("link") || call.starts_with("mkdir") ||
                       call.starts_with("rmdir");
    const std::string path = path_in(call);
    if (!opens || !path.starts_with('/')) return true;
    const auto holds = [&path](const auto& place) { return path.starts_with(place); };
    return std::any_of(own.begin(), own.end(), holds) ||
           std::any_of(std::begin(resources), std::end(resources), holds) ||
           std::any_of(std::begin(office_resources), std::end(office_resources), holds);
}

TEST_F(Trace, AWordDocumentIsReadWithNothingBeyondThePolicy) {
    REQUIRE_HOST("Word");
    shop.write("in.rtf",
               R"({\rtf1 Words {\field{\*\fldinst INCLUDEPICTURE "/usr/share/pixmaps/debian-logo.png" \\d}})"
               R"({\field{\*\fldinst INCLUDETEXT "/etc/passwd"}} and more.\par})");
    for (const auto& [member, output] :
         {std::pair("CreatePDFfromWord2", "out.pdf"), std::pair("CreatePSfromWord", "out.ps")}) {
        const auto processes = contained_processes({member, output, "in.rtf"});
        ASSERT_EQ(processes.size(), 1U) << member;
        for (const std::string& call : processes.front().calls)
            EXPECT_TRUE(!succeeded(call) || is_office_business(call, {shop.path("in.rtf").string(),
                                                                      shop.temporary_folder().string()}))
                << member << ": " << call;
        for (const std::string& name : shop.files())
            if (name.starts_with("trace.")) std::filesystem::remove(shop.path(name));
    }
}

}  // namespace
}  // namespace foliant::end_to_end

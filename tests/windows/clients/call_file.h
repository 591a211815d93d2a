#pragma once

#include <string>
#include <vector>

namespace foliant::tests::clients {

/// A kind of call, and what it comes to when all goes well: a file in calls/, one for each host, or hosts,
/// and shape of a call. Lines of its head:
///
///     call: CreatePDFfromPS: out.pdf; in.ps; printer     see call.h
///     makes: out.pdf                                     a file in the client's folder
///     window: after TEXT                                 a client with a window calls back into the
///     component
///                                                        once that text is recorded; `window: at once`
///                                                        before
///     early-bound: yes                                   the early-bound client knows it
///     in-process: yes                                    its hosts do not all learn which file it is about, and
///                                                        in a process of their own could not tell clients apart
///     alone: yes                                         it puts up dialogs: no two at a time
///
/// After an empty line comes what is recorded and said.
struct CallFile {
    std::string name;
    std::string call;
    std::string makes;
    std::string window;
    bool early_bound = false;
    bool alone = false;
    bool in_process = false;
    std::string expected;
};

/// "distiller" is calls/distiller.txt.
CallFile call_file(const std::string& name);

/// The same call with another argument: "printer" becomes "=unset".
CallFile with(CallFile file, const std::string& argument, const std::string& other);

/// All that lie in calls/ itself, by name.
std::vector<CallFile> all_call_files();

}  // namespace foliant::tests::clients

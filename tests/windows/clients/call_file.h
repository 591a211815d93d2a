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
///     client: VBScript                                   no other client makes it: nor JScript, LateBoundCpp,
///                                                        EarlyBoundCpp
///     apart: yes                                         its hosts do not all learn which file it is about: in a
///                                                        process of their own they serve this call only
///     alone: until TEXT                                  it puts up dialogs or windows: no two at a time, until
///                                                        that text is recorded
///
/// After an empty line comes what is recorded and said.
struct CallFile {
    std::string name;
    std::string call;
    std::string makes;
    std::string window;
    std::string client;  ///< "" for all of them
    std::string alone;   ///< the text after which others may begin
    bool early_bound = false;
    bool apart = false;
    std::string expected;
};

/// "distiller" is calls/distiller.txt.
CallFile call_file(const std::string& name);

/// The same call with another argument: "printer" becomes "=unset".
CallFile with(CallFile file, const std::string& argument, const std::string& other);

/// All that lie in calls/ itself, by name.
std::vector<CallFile> all_call_files();

}  // namespace foliant::tests::clients

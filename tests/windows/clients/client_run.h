#pragma once

#include <string>
#include <windows.h>

#include "windows/clients/call_file.h"
#include "windows/servers/scene.h"

namespace foliant::tests::clients {

/// The programs that make one call; each says on its output what came of it.
enum class Client { vbscript, jscript, late_bound, early_bound };

std::string name_of(Client client);

inline constexpr Client all_clients[]{Client::vbscript, Client::jscript, Client::late_bound,
                                      Client::early_bound};

/// One call by a client in a process of its own, with a folder of its own: `in.pdf`, `in.ps` and `in.doc`
/// are there, and whatever the call makes.
class ClientRun {
  public:
    /// Starts it. `folder` is a name, unique among runs that overlap. Outside action number `k` of the call
    /// fails; 0 stands for none.
    ClientRun(Client client, const CallFile& call, const std::string& folder, int k = 0,
              servers::Ending ending = servers::Ending::raised);
    ClientRun(ClientRun&& other) noexcept;
    ClientRun& operator=(ClientRun&&) = delete;
    /// Ends the process if it still runs, and removes the folder.
    ~ClientRun();

    /// Waits until the record holds a text, or the process has ended.
    void wait_for(const std::string& text);

    /// Waits until the process has ended, two minutes at most. What the hosts recorded, then what the client
    /// said, with the folder and the name of a temporary file left out; a client that does not end in time or
    /// not with 0 is the last line.
    std::string result();

    bool has(const wchar_t* file) const;

    /// Writes a text file into the folder of a run that is yet to be started.
    static void prepare(const std::string& folder, const char* file, const std::string& text);

    static std::wstring folder_of(const std::string& name);

  private:
    void start();
    bool has_ended(DWORD wait_ms);

    std::wstring folder_;
    std::wstring command_;
    int attempts_ = 0;
    HANDLE process_ = nullptr;
};

/// The text without the lines that begin so.
std::string without(std::string text, const std::string& beginning);

/// What a client's call comes to when all goes well. It is the same for every client, but that one of them
/// alone has a window that calls back, that scripts have no sinks in this system's script host, and JScript
/// no variables that a call could fill in.
std::string expected_of(Client client, const CallFile& call);

/// A text file that lies beside the tests.
std::string file_beside(const std::string& name);
std::wstring path_beside(const std::wstring& name);

/// One in expected/.
std::string expected(const std::string& file);

}  // namespace foliant::tests::clients

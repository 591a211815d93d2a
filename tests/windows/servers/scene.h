#pragma once

#include <string>
#include <vector>

namespace foliant::tests::servers {

/// How an action on a recorded host ends.
enum class Ending {
    good,
    raised,       ///< with run-time error 1004 and a description
    bare_result,  ///< with E_ACCESSDENIED and nothing else
    death,        ///< the host's process ends
};

/// What one client does with one recorded host, from the creation of the host to its end: where that is
/// recorded, and which action is to fail.
///
/// Every client has a folder with its record in it. A host inside the client's process finds it by the
/// environment; one in a process of its own, which serves several clients at once, finds it by the first
/// document that it is given, and holds its lines back until then, unless it serves one client only (serve_only).
/// Without such a folder the record is the one that all processes share (record.h).
class Scene {
  public:
    Scene();
    Scene(const Scene&) = delete;
    Scene& operator=(const Scene&) = delete;
    ~Scene();

    /// The host was given a file of the client's.
    void see(const std::wstring& document);

    /// Records what the client does, with " fails" where it is to, and says how it is to end.
    Ending act(const std::string& action);

    /// Records what the host does or undergoes.
    void note(const std::string& line);

    /// How many objects of the host exist.
    int objects = 0;

  private:
    Ending planned_ending() const;
    void write_held_lines();

    std::wstring folder_;  ///< empty as long as it is not known
    std::vector<std::string> held_;
};

/// Lets action number `k` of the client that has its record in `folder` fail, counted from 1; good stands for
/// none.
void let_fail(const std::wstring& folder, int k, Ending ending);

/// Until it is called again, hosts in a process of their own take all that is done with them for the doing of
/// the client that has its record in `folder`; "" for that of several, or none.
void serve_only(const std::wstring& folder);

}  // namespace foliant::tests::servers

#pragma once

#include <string>

namespace foliant::tests::servers {

enum class Kind { in_process, local };

/// Registers the recorded classes, and what an installed Acrobat 6 has in the registry, for as long as it
/// lives; starts with an empty record. The system's Notepad is then a recorded one as well, and the user's default
/// printer "Office printer" beside "Adobe PDF".
class Installation {
  public:
    /// `with_event_names` also registers the type library that names the Distiller's events.
    explicit Installation(Kind kind, bool with_event_names);
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
    ~Installation();

    /// What has been recorded up to now.
    std::string record() const;

    /// Lets the process of local servers end, once their last object has gone.
    void dismiss();

  private:
    void* wanted_;
    std::wstring notepad_;
};

}  // namespace foliant::tests::servers

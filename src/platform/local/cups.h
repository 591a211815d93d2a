#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace foliant::platform::local {

/// The print spooler of the machine. Its library is loaded when it is first needed, so that the program runs
/// and starts as fast where there is none.
class Cups {
  public:
    /// Nothing is loaded or asked yet.
    Cups();
    Cups(const Cups&) = delete;
    Cups& operator=(const Cups&) = delete;
    ~Cups();

    /// Whether the spooler has a queue of that name. False when there is no spooler.
    bool has_printer(const std::string& name);

    /// The user's default queue, "" when there is none. Asks only on a machine that shows signs of a spooler.
    std::string default_printer();

    /// The names of all queues. Asks only on a machine that shows signs of a spooler.
    std::vector<std::string> printers();

    /// Hands a file to a queue. Raises 57 with the spooler's reason.
    void print(const std::string& printer, const std::filesystem::path& file, const std::string& title);

  private:
    class Library;

    /// Null when the spooler's library is not installed.
    Library* library();

    std::unique_ptr<Library> library_;
    bool tried_ = false;
};

}  // namespace foliant::platform::local

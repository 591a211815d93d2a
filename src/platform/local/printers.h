#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/local/cups.h"
#include "platform/local/registry_store.h"

namespace foliant::platform::local {

/// The printers of the machine: the PDF printer, which is built in, and the queues of the spooler. Names are
/// told apart by case. The spooler is asked only about names that are not the PDF printer's.
class Printers {
  public:
    /// `store` outlives this; it says by what name Acrobat has registered its printer.
    explicit Printers(RegistryStore& store) : store_(store) {}

    /// "Adobe PDF", "Acrobat Distiller" and the registered name are one printer.
    bool is_pdf_printer(std::string_view name);
    bool has(std::string_view name);
    /// The printer that the user has chosen in the settings store (`chosen_key`), if it is still there; else
    /// the spooler's default queue, or the PDF printer when there is none.
    std::string default_name();
    /// The names of all printers: the PDF printer by the name that it is registered under, then the queues.
    std::vector<std::string> names();
    /// Prints a finished PDF file on a queue of the spooler. Raises 5 for a printer that does not exist or is
    /// the PDF printer, 53 for a missing file, and 57 when the spooler does not take the job.
    void print(std::string_view name, const std::filesystem::path& pdf, std::string_view title);

    /// Under this key the value "Device" names the printer that the user has chosen, then its driver and
    /// port: "Adobe PDF,winspool,Ne00:".
    static constexpr std::string_view chosen_key =
        "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows NT\\CurrentVersion\\Windows";

  private:
    std::string registered_name();
    std::string pdf_printer_name();
    std::string chosen_name();

    RegistryStore& store_;
    Cups cups_;
};

}  // namespace foliant::platform::local

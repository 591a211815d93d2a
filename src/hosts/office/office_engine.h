#pragma once

#include <filesystem>
#include <memory>
#include <string>

namespace foliant::hosts::office {

class TextDocument;

/// LibreOffice inside this process: no other process, no daemon, no pipe.
///
/// There is one for the life of the process, because LibreOffice can be started only once; it is never ended.
/// A process that has started it ends best with `_exit` after flushing its output: LibreOffice's threads are
/// still there while static objects are destroyed. Not for use from two threads.
class OfficeEngine {
  public:
    /// Starts LibreOffice with a fresh profile in `private_folder`, an existing folder that stays until the
    /// process ends and that the caller removes then; profile and temporary files live there. A second call
    /// gives the same engine and does not look at its argument.
    /// Leaves signal handlers, the C locale and the temporary folder of the process as they were.
    /// Raises 429 naming the package when LibreOffice is not there or cannot be used, 75 when the folder
    /// cannot be written.
    static OfficeEngine& start(const std::filesystem::path& private_folder);

    /// Opens a Word, OpenDocument, RTF, HTML or text document, hidden. The file is only read: nothing is
    /// locked, and nothing is written beside it. Macros do not run, links are not followed.
    ///
    /// `open_password` may be empty. `write_password` may be empty too, and is answered where LibreOffice
    /// asks for it; since the document is never written, it opens without. Raises 5174 (no such file), 5408
    /// (password needed or wrong), 5792 (empty or damaged), 5151 (not a document that Word reads), 70.
    std::unique_ptr<TextDocument> open(const std::filesystem::path& path, const std::string& open_password,
                                       const std::string& write_password);

    OfficeEngine(const OfficeEngine&) = delete;
    OfficeEngine& operator=(const OfficeEngine&) = delete;

  private:
    struct Office;

    explicit OfficeEngine(std::unique_ptr<Office> office);
    ~OfficeEngine();

    std::unique_ptr<Office> office_;
};

}  // namespace foliant::hosts::office

#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <sys/types.h>
#include <utility>

#include "hosts/machine.h"
#include "hosts/process/peer.h"

namespace foliant::hosts::process {

/// Answers what a contained host asks of its machine. The host may be in a document's hands: it gets the
/// files that were named to it and no other.
class MachineService {
  public:
    /// `folder` is private to the host. `save_command` is the text that tells it to save a document in place,
    /// "" for a host that never may. `machine` outlives this.
    MachineService(Machine& machine, std::filesystem::path folder, std::string save_command = {})
        : machine_(machine), folder_(std::move(folder)), save_command_(std::move(save_command)) {}
    MachineService(const MachineService&) = delete;
    MachineService& operator=(const MachineService&) = delete;
    /// Closes the windows that the host has left open.
    ~MachineService();

    /// A text that went to the host: it may be the name of a document or of an output, or a command that
    /// names one.
    void was_named(const std::string& text);

    /// Answers one call. `peer` is whom to tell of clicks. Throws what the machine throws, and
    /// filesystem_error with EACCES for a file that is not the host's business.
    void answer(Peer& peer, Reader& arguments, Writer& result);

  private:
    void open_document(Reader& arguments, Writer& result);
    void make_output(Reader& arguments, Writer& result);
    void commit_output(Reader& arguments);
    void put_printer_names(Writer& result) const;
    void print(Reader& arguments);
    void show_progress(Reader& arguments);
    void tell_failure(Reader& arguments);
    void show_in_acrobat(Reader& arguments);
    void take_handed_over(Writer& result);
    void show(Peer& peer, Reader& arguments, Writer& result);
    void open_window(Peer& peer, Reader& arguments, Writer& result);
    void close_window(Reader& arguments);
    void leave_open(Reader& arguments);
    void capture_page(Reader& arguments, Writer& result);
    bool is_its_own(const std::filesystem::path& file) const;
    std::filesystem::path named_path(Reader& arguments) const;

    bool may_replace(const std::filesystem::path& document) const;

    Machine& machine_;
    std::filesystem::path folder_;
    std::string save_command_;
    std::set<std::string> named_;
    std::set<std::string> said_since_opening_;     ///< but for the names by which documents were opened
    std::set<std::string> proposals_;              ///< what the outputs of the documents are usually called
    std::set<std::pair<dev_t, ino_t>> documents_;  ///< those that were opened
    std::map<std::uint32_t, std::unique_ptr<OutputFile>> outputs_;
    std::uint32_t last_output_ = 0;
    std::size_t failures_told_ = 0;
    std::set<HostWindow> windows_;
};

}  // namespace foliant::hosts::process

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <utility>

#include "hosts/machine.h"
#include "hosts/process/peer.h"

namespace foliant::hosts::process {

/// The machine as a host sees it that runs in a process of its own: everything is asked of the process that
/// it works for.
class RemoteMachine : public Machine {
  public:
    /// Puts the host's policy into force, with one document that may be read besides, unless its
    /// path is empty.
    using Contain = std::function<void(const std::filesystem::path& document)>;

    /// `folder` is private to the host. `contain` is called before the host gets its first document.
    RemoteMachine(std::filesystem::path folder, std::uint64_t memory_limit_bytes, Contain contain)
        : folder_(std::move(folder)), memory_limit_(memory_limit_bytes), contain_(std::move(contain)) {}

    /// Whom to ask; before anything else is called.
    void connect(std::shared_ptr<Peer> peer) { peer_ = std::move(peer); }

    /// The other side's click on a control of the dialog that is shown.
    void click(Reader& arguments, Writer& result);
    /// The other side has closed a window.
    void closed(Reader& arguments);

    std::filesystem::path private_folder() const override { return folder_; }
    std::uint64_t memory_limit_bytes() const override { return memory_limit_; }
    /// The place of the first document is the file itself; later ones have a copy in the private folder,
    /// because a policy in force cannot be widened. An open file needs none.
    DocumentFile open_document(const std::filesystem::path& path,
                               DocumentAccess access = DocumentAccess::place) override;
    void be_contained() override;
    std::unique_ptr<OutputFile> make_output(const std::filesystem::path& path) override;
    bool has_printer(std::string_view name) const override;
    bool is_pdf_printer(std::string_view name) const override;
    std::string default_printer() const override;
    std::vector<std::string> printer_names() const override;
    void print(std::string_view printer, const std::filesystem::path& pdf, std::string_view title) override;
    bool found(const FoundText& place) override;
    void show_progress(std::string_view doing, int percent) override;
    void tell_failure(const std::string& sentence) override;
    void show(Dialog& dialog) override;
    HostWindow open_window(std::string caption, std::function<void()> on_close) override;
    void close_window(HostWindow window) override;
    void show_in_acrobat(const std::filesystem::path& pdf, const std::string& name) override;
    std::optional<HandedOver> take_handed_over() override;
    CapturedPage capture_page(const std::string& address) override;
    void leave_open(const std::optional<LeftOpen>& document) override;
    /// Nothing: the store holds passwords, which a process that reads documents is better without.
    std::optional<std::string> setting(std::string_view key, std::string_view value) const override;

  private:
    void be_contained(const std::filesystem::path& document);
    std::filesystem::path copy_of(const DocumentFile& document);

    std::filesystem::path folder_;
    std::uint64_t memory_limit_;
    Contain contain_;  ///< empty once it is in force
    int copies_ = 0;
    std::shared_ptr<Peer> peer_;
    Dialog* shown_ = nullptr;
    std::map<HostWindow, std::function<void()>> windows_;  ///< what to tell when they are closed
};

}  // namespace foliant::hosts::process

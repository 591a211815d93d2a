#pragma once

#include <span>
#include <string_view>

namespace foliant::hosts {

/// A class of no other product: what gets web pages for a machine without a browser (hosts/transfer/page_fetcher.h).
inline constexpr std::string_view page_fetcher = "Foliant.PageFetcher";

/// A host program that the library drives, and what stands in for it on a machine without Windows.
struct Host {
    std::string_view name;  ///< Of the program it stands in for.
    std::span<const std::string_view>
        classes;  ///< ProgIDs and class identifiers, as they are officially spelt; of a host that is
                  ///< no automation server, the name that command lines start it by.
    std::string_view engine;   ///< What does the work; "" when there is no engine for it.
    std::string_view module;   ///< File name without ".so" of its module; "" when there is no engine.
    std::string_view package;  ///< The Debian package that brings the engine; "" when there is none.
    /// Runs in a process of its own that the kernel contains, by the policy that its module states.
    bool contained = false;
    /// The text with which it is told to save a document under its own name. A contained host may replace a
    /// document then, and when it is given the document's name again as that of an output; "" for a host that
    /// never may.
    std::string_view save_command = {};
    /// What to do instead where there is no engine: a sentence or two.
    std::string_view instead = {};
};

/// All hosts that the library drives, whether this version has a stand-in or not; in the order to show them
/// in.
std::span<const Host> catalogue() noexcept;

/// One class of a host.
struct HostClass {
    const Host* host = nullptr;  ///< Null when no host has such a class.
    std::string_view name;       ///< As officially spelt.
};

/// The host that has the class of that ProgID or class identifier, in any case.
HostClass find_class(std::string_view class_name) noexcept;

}  // namespace foliant::hosts

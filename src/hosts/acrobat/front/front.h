#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "hosts/acrobat/front/engine.h"
#include "hosts/machine.h"

/// Acrobat as its callers meet it first: objects that stand for the engine's, and can count the pages of a plain file
/// themselves. Whatever else they are asked wakes the engine: it gets what they have open, and every call from then
/// on, so that nobody can tell the one from the other but by the time that it takes.
namespace foliant::hosts::acrobat::front {

class StandIn;
class Viewer;

/// What the objects of one Acrobat have in common. Its objects hold it.
class Front : public std::enable_shared_from_this<Front> {
  public:
    /// Loads the engine, or raises why it cannot be had.
    using Load = const Engine& (*)();

    Front(Machine& machine, Load load) : machine_(machine), load_(load) {}

    /// Creates one of Acrobat's classes. Raises what the engine does.
    automation::ObjectPtr create(std::string_view class_name);

    bool is_awake() const noexcept { return engine_ != nullptr; }
    /// Loads the engine, unless it is, and hands everything over to it.
    const Engine& wake();

    Machine& machine() const noexcept { return machine_; }
    /// A viewer shows a file from now on, in front of the others.
    void note_shown(const std::shared_ptr<Viewer>& viewer) { shown_.push_back(viewer); }
    /// Whether the front itself shows files.
    bool shows_any() const noexcept { return !shown_.empty(); }
    /// Those that the front itself shows files in show nothing more.
    void close_all() noexcept;

    /// Tells the people who wait what is done to which file, a few times a second.
    void show_progress(std::string_view doing, const std::string& path, int percent);

    /// Has an object of the front's told when the engine wakes.
    template <typename Object>
    std::shared_ptr<Object> keep(std::shared_ptr<Object> object) {
        objects_.push_back(object);
        return object;
    }

  private:
    Machine& machine_;
    Load load_;
    const Engine* engine_ = nullptr;
    std::chrono::steady_clock::time_point last_progress_;
    std::vector<std::weak_ptr<StandIn>> objects_;
    std::vector<std::weak_ptr<Viewer>> shown_;  ///< as they were opened
};

}  // namespace foliant::hosts::acrobat::front

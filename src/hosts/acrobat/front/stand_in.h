#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "automation/object.h"
#include "hosts/acrobat/front/front.h"
#include "hosts/acrobat/front/own_document.h"

namespace foliant::hosts::acrobat::front {

/// Stands for an object of the engine, which is made when the engine wakes.
class StandIn : public automation::Object {
  public:
    /// For an object of that class.
    StandIn(std::shared_ptr<Front> front, std::string_view class_name)
        : front_(std::move(front)), class_name_(class_name) {}

    automation::Value invoke(automation::Access access, std::string_view member,
                             const automation::Arguments& arguments) final;
    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) final;
    std::unique_ptr<automation::Enumeration> enumerate() final;

    /// The engine's object; wakes the engine.
    const automation::ObjectPtr& real();

  protected:
    /// The result of a call that needs no engine; nothing for any other. Not asked once the engine is awake.
    virtual std::optional<automation::Value> at_once(std::string_view /*member*/,
                                                     const automation::Arguments& /*arguments*/) {
        return std::nullopt;
    }
    /// Makes the engine's object, in the state in which this one is.
    virtual automation::ObjectPtr make_real(const Engine& engine);

    const std::shared_ptr<Front>& front() const noexcept { return front_; }

  private:
    std::shared_ptr<Front> front_;
    std::string_view class_name_;
    automation::ObjectPtr real_;  ///< null before the engine is awake
};

/// A file whose pages were counted.
struct CountedFile {
    std::string path;
    posix::FileDescriptor descriptor;
    std::int32_t pages = 0;
};

/// "AcroExch.App"
class Application : public StandIn {
  public:
    explicit Application(std::shared_ptr<Front> front);

  protected:
    std::optional<automation::Value> at_once(std::string_view member,
                                             const automation::Arguments& arguments) override;
};

/// "AcroExch.AVDoc"
class Viewer : public StandIn {
  public:
    explicit Viewer(std::shared_ptr<Front> front);

    /// What it shows; null for nothing.
    const std::shared_ptr<CountedFile>& file() const noexcept { return file_; }
    void close() noexcept { file_.reset(); }

  protected:
    std::optional<automation::Value> at_once(std::string_view member,
                                             const automation::Arguments& arguments) override;
    automation::ObjectPtr make_real(const Engine& engine) override;

  private:
    std::shared_ptr<Viewer> self() { return std::static_pointer_cast<Viewer>(shared_from_this()); }
    std::optional<automation::Value> open(const automation::Arguments& arguments);

    bool was_opened_ = false;
    std::shared_ptr<CountedFile> file_;
};

/// "AcroExch.PDDoc", created or of a viewer.
class Document : public StandIn {
  public:
    explicit Document(std::shared_ptr<Front> front, std::shared_ptr<Viewer> viewer = nullptr);

  protected:
    std::optional<automation::Value> at_once(std::string_view member,
                                             const automation::Arguments& arguments) override;
    automation::ObjectPtr make_real(const Engine& engine) override;

  private:
    std::optional<automation::Value> open(const automation::Arguments& arguments);
    std::optional<automation::Value> insert_pages(const automation::Arguments& arguments);
    std::optional<automation::Value> save(const automation::Arguments& arguments);

    std::shared_ptr<Viewer> viewer_;     ///< that showed it
    std::shared_ptr<CountedFile> file_;  ///< what it showed; null where it did not
    OwnDocument own_;                    ///< what it has opened or made itself
};

}  // namespace foliant::hosts::acrobat::front

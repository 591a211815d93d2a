#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "automation/object.h"
#include "hosts/process/channel.h"
#include "hosts/settled_object.h"

namespace foliant::hosts::process {

/// One of two processes that use each other's automation objects. Both do the same: an object that goes over
/// is a proxy there, one that comes back is itself again; while an answer is waited for, the other's calls
/// are answered. One call is under way at a time, on one thread.
///
/// The results of an object's settled members (hosts/settled_object.h) go over with the object, and are not
/// asked for again. What is nothing but numbers (hosts/record_object.h) has them where it is used.
///
/// Besides objects' members, each side answers calls of its own kind: its service.
class Peer : public std::enable_shared_from_this<Peer> {
  public:
    enum class Loss { gone, garbled };

    /// What a side does besides passing on calls; all may be empty but `service` and `lost`.
    struct Manners {
        /// Reads the arguments of a call of the service, and writes its result. What it throws is thrown at
        /// the caller: automation errors, file-system errors with their path and code, anything else as
        /// error 51.
        std::function<void(Peer&, Reader& arguments, Writer& result)> service;
        /// Told when the other side is gone, or sends what is no message, and which member was called last;
        /// throws the error that the call ends with.
        std::function<void(Loss, const std::string& member)> lost;
        /// Told before a failure of the other side is thrown here; may throw another.
        std::function<void(const std::string& member)> failed;
        /// Told of every text that this side sends to the other in a value.
        std::function<void(const std::string& text)> sent;
    };

    Peer(Channel channel, Manners manners);
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    ~Peer();

    /// Calls the other side's service. What is not as expected in the result may be thrown as Garbled only by
    /// who trusts the other side, or is answering it.
    Reader call(const Writer& arguments);
    /// Calls what answers with a value.
    automation::Value call_for_value(const Writer& arguments);

    /// Answers the other side's calls until it is gone. What its calls do to this side is told to them only.
    void serve();

    /// For services: an object as the result.
    void put_object(Writer& message, const automation::ObjectPtr& object);

  private:
    class Proxy;
    class Listener;
    class RemoteSubscription;
    using Handle = std::uint32_t;
    struct Exported {
        automation::ObjectPtr object;
        std::uint32_t count = 0;  ///< how often it went over and was not let go of
    };

    enum class Message : std::uint8_t;

    Reader ask(const Writer& request);
    automation::Value ask_for_value(const Writer& request);
    [[noreturn]] void lose(Loss loss);
    void answer(Message kind, Reader& request);
    void perform(Message kind, Reader& request, Writer& result);
    void perform_invoke(Reader& request, Writer& result);
    void perform_subscribe(Reader& request);
    void perform_notify(Reader& request);
    void let_go(Reader& request);

    automation::Value invoke(Handle handle, automation::Access access, std::string_view member,
                             const automation::Arguments& arguments);
    void put(Writer& message, const automation::Value& value);
    void put_arguments(Writer& message, const automation::Arguments& arguments);
    void put_array(Writer& message, const automation::Array& array);
    automation::Value value(Reader& message, int depth);
    automation::Value array(Reader& message, int depth);
    automation::ObjectPtr received(Reader& message, int depth);
    automation::ObjectPtr returned(Reader& message) const;
    void put_settled(Writer& message, const std::vector<SettledMember>& members);
    SettledMember read_settled(Reader& message, int depth);
    automation::ObjectPtr exported(Handle handle) const;

    Channel channel_;
    Manners manners_;
    int depth_ = 0;
    std::string member_;  ///< that was called last
    Handle last_handle_ = 0;
    std::map<Handle, Exported> exported_;
    std::unordered_map<const automation::Object*, Handle> handles_;  ///< of what is exported
    std::map<Handle, std::weak_ptr<Proxy>> proxies_;
    std::map<Handle, automation::EventSink*> sinks_;         ///< on this side, for the other's objects
    std::map<Handle, std::unique_ptr<Listener>> listeners_;  ///< on this side, for the other's sinks
};

}  // namespace foliant::hosts::process

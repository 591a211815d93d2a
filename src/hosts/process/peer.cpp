#include "hosts/process/peer.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <variant>

#include "automation/error.h"
#include "hosts/process/failure.h"
#include "hosts/process/kept_record.h"
#include "hosts/record_object.h"
#include "hosts/settled_object.h"

namespace foliant::hosts::process {

using automation::Access;
using automation::Arguments;
using automation::Array;
using automation::ObjectPtr;
using automation::Value;

enum class Peer::Message : std::uint8_t {
    invoke,
    call,
    subscribe,
    unsubscribe,
    notify,
    release,
    result,
    failure
};

namespace {

enum class Kind : std::uint8_t {
    empty,
    missing,
    null,
    truth,
    int16,
    int32,
    single,
    real,
    text,
    nothing,
    theirs,
    yours,
    array
};

constexpr std::size_t most_settled_bytes = std::size_t{16} << 20U;  // of results that go along with an object
constexpr int deepest_array = 8;
constexpr int in_settled = deepest_array;      // as deep as arrays are not
constexpr int only_plain = deepest_array + 1;  // nor objects
constexpr int deepest_call = 64;               // callbacks in callbacks; honest hosts make two

/// Counts calls that are under way inside each other.
class Nesting {
  public:
    explicit Nesting(int& depth) : depth_(depth) { ++depth_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { --depth_; }

  private:
    int& depth_;
};

std::size_t size_of(const SettledMember& member) {
    if (const auto* const texts = std::get_if<Texts>(&member.results))
        return texts->bytes().size() + texts->size() * sizeof(std::uint32_t);
    const auto* const text = std::get<Value>(member.results).if_holds<std::string>();
    return sizeof(Value) + (text != nullptr ? text->size() : 0);
}

const std::vector<SettledMember>& none_settled() {
    static const std::vector<SettledMember> none;
    return none;
}

/// The settled results of an object, unless they are too many to send along.
const std::vector<SettledMember>& results_to_send(const automation::Object& object) {
    const auto* const settled = dynamic_cast<const SettledObject*>(&object);
    if (settled == nullptr) return none_settled();
    std::size_t bytes = 0;
    for (const SettledMember& member : settled->settled().members())
        bytes += size_of(member);
    return bytes <= most_settled_bytes ? settled->settled().members() : none_settled();
}

void put_texts(Writer& message, const Texts& texts) {
    message.put(std::string_view(texts.bytes())).put(static_cast<std::uint32_t>(texts.size()));
    for (const std::uint32_t end : texts.ends())
        message.put(end);
}

Texts read_texts(Reader& message) {
    std::string bytes = message.text();
    std::vector<std::uint32_t> ends(message.count());
    std::uint32_t last = 0;
    for (std::uint32_t& end : ends) {
        end = message.number<std::uint32_t>();
        if (end < last || end > bytes.size()) throw Garbled();
        last = end;
    }
    return {std::move(bytes), std::move(ends)};
}

}  // namespace

/// The other side's object.
class Peer::Proxy : public automation::Object {
  public:
    Proxy(std::shared_ptr<Peer> peer, Handle handle) : peer_(std::move(peer)), handle_(handle) {}
    ~Proxy() override {
        peer_->proxies_.erase(handle_);
        peer_->channel_.send_with_next(Writer().put(Message::release).put(handle_).put(received_));
    }

    void was_received() noexcept { ++received_; }
    bool belongs_to(const Peer& peer) const noexcept { return peer_.get() == &peer; }
    Handle handle() const noexcept { return handle_; }

    void settle(SettledMember member) { settled_.add(std::move(member)); }
    KeptRecord& record() noexcept { return record_; }

    Value invoke(Access access, std::string_view member, const Arguments& arguments) override {
        if (auto result = settled_.find(access, member, arguments)) return *std::move(result);
        if (auto result = record_.invoke(access, member, arguments)) return *std::move(result);
        const ObjectPtr alive = shared_from_this();  // a member may let go of the object
        return peer_->invoke(handle_, access, member, arguments);
    }
    std::unique_ptr<automation::Subscription> subscribe(automation::EventSink& sink) override;

  private:
    std::shared_ptr<Peer> peer_;
    Handle handle_;
    std::uint32_t received_ = 0;
    SettledResults settled_;
    KeptRecord record_;
};

/// A subscription to the other side's object, for a sink on this side.
class Peer::RemoteSubscription : public automation::Subscription {
  public:
    RemoteSubscription(std::shared_ptr<Peer> peer, Handle sink) : peer_(std::move(peer)), sink_(sink) {}
    ~RemoteSubscription() override {
        peer_->sinks_.erase(sink_);
        peer_->channel_.send(Writer().put(Message::unsubscribe).put(sink_));
    }

  private:
    std::shared_ptr<Peer> peer_;
    Handle sink_;
};

/// The other side's sink, listening to an object on this side.
class Peer::Listener : public automation::EventSink {
  public:
    Listener(Peer& peer, Handle sink) : peer_(peer), sink_(sink) {}

    void listen_to(automation::Object& object) { subscription_ = object.subscribe(*this); }

    void notify(std::string_view event, std::span<const Value> arguments) override {
        Writer request;
        request.put(Message::notify).put(sink_).put(event);
        request.put(static_cast<std::uint32_t>(arguments.size()));
        for (const Value& argument : arguments)
            peer_.put(request, argument);
        peer_.ask(request);
    }

  private:
    Peer& peer_;
    Handle sink_;
    std::unique_ptr<automation::Subscription> subscription_;
};

std::unique_ptr<automation::Subscription> Peer::Proxy::subscribe(automation::EventSink& sink) {
    const Handle number = ++peer_->last_handle_;
    peer_->sinks_[number] = &sink;
    try {
        peer_->ask(Writer().put(Message::subscribe).put(handle_).put(number));
    } catch (...) {
        peer_->sinks_.erase(number);
        throw;
    }
    return std::make_unique<RemoteSubscription>(peer_, number);
}

Peer::Peer(Channel channel, Manners manners) : channel_(std::move(channel)), manners_(std::move(manners)) {}

Peer::~Peer() = default;

Reader Peer::call(const Writer& arguments) {
    return ask(Writer().put(Message::call).put(arguments));
}

Value Peer::call_for_value(const Writer& arguments) {
    return ask_for_value(Writer().put(Message::call).put(arguments));
}

Value Peer::invoke(Handle handle, Access access, std::string_view member, const Arguments& arguments) {
    member_ = member;
    Writer request;
    request.put(Message::invoke).put(handle).put(static_cast<std::uint8_t>(access)).put(member);
    put_arguments(request, arguments);
    return ask_for_value(request);
}

/// Sends a request and waits for its answer, answering the other side's requests meanwhile.
Reader Peer::ask(const Writer& request) {
    const Nesting nesting(depth_);
    try {
        if (depth_ > deepest_call) throw Garbled();
        if (!channel_.send(request)) lose(Loss::gone);
        while (auto message = channel_.receive()) {
            const auto kind = static_cast<Message>(message->number<std::uint8_t>());
            if (kind == Message::result) return std::move(*message);
            if (kind == Message::failure) {
                if (manners_.failed) manners_.failed(member_);
                throw_failure(*message);
            }
            answer(kind, *message);
        }
    } catch (const Garbled&) {
        lose(Loss::garbled);
    }
    lose(Loss::gone);
}

void Peer::lose(Loss loss) {
    channel_.close();
    manners_.lost(loss, member_);
    throw automation::Error(automation::RuntimeError::internal_error);
}

Value Peer::ask_for_value(const Writer& request) {
    Reader result = ask(request);
    try {
        return value(result, 0);
    } catch (const Garbled&) {
        lose(Loss::garbled);
    }
}

void Peer::serve() {
    while (auto request = channel_.receive())
        answer(static_cast<Message>(request->number<std::uint8_t>()), *request);
}

void Peer::answer(Message kind, Reader& request) {
    if (kind == Message::release) return let_go(request);
    if (kind == Message::unsubscribe) {
        listeners_.erase(request.number<Handle>());
        return;
    }
    Writer result;
    try {
        result.put(Message::result);
        perform(kind, request, result);
    } catch (const Garbled&) {
        throw;
    } catch (...) {
        result = Writer();
        result.put(Message::failure);
        put_failure(result);
    }
    channel_.send(result);  // that nobody is there any more shows with the next message
}

void Peer::perform(Message kind, Reader& request, Writer& result) {
    switch (kind) {
        case Message::invoke:
            return perform_invoke(request, result);
        case Message::call:
            return manners_.service(*this, request, result);
        case Message::subscribe:
            return perform_subscribe(request);
        case Message::notify:
            return perform_notify(request);
        default:
            throw Garbled();
    }
}

void Peer::perform_invoke(Reader& request, Writer& result) {
    const ObjectPtr object = exported(request.number<Handle>());
    const auto access = request.number<std::uint8_t>();
    if (access > static_cast<std::uint8_t>(Access::set_reference)) throw Garbled();
    const std::string member = request.text();
    Arguments arguments;
    for (auto count = request.count(); count > 0; --count) {
        const std::string name = request.text();
        arguments.emplace_back(name, value(request, 0));
    }
    put(result, object->invoke(static_cast<Access>(access), member, arguments));
}

void Peer::perform_subscribe(Reader& request) {
    const ObjectPtr object = exported(request.number<Handle>());
    const auto sink = request.number<Handle>();
    auto listener = std::make_unique<Listener>(*this, sink);
    listener->listen_to(*object);
    if (!listeners_.emplace(sink, std::move(listener)).second) throw Garbled();
}

void Peer::perform_notify(Reader& request) {
    const auto sink = sinks_.find(request.number<Handle>());
    const std::string event = request.text();
    std::vector<Value> arguments;
    for (auto count = request.count(); count > 0; --count)
        arguments.push_back(value(request, 0));
    if (sink != sinks_.end()) sink->second->notify(event, arguments);  // else it has just been unsubscribed
}

void Peer::let_go(Reader& request) {
    const auto entry = exported_.find(request.number<Handle>());
    const auto count = request.number<std::uint32_t>();
    if (entry == exported_.end() || entry->second.count < count) throw Garbled();
    entry->second.count -= count;
    if (entry->second.count > 0) return;
    const ObjectPtr last = entry->second.object;  // goes when the tables are in order again
    handles_.erase(last.get());
    exported_.erase(entry);
}

ObjectPtr Peer::exported(Handle handle) const {
    const auto entry = exported_.find(handle);
    if (entry == exported_.end()) throw Garbled();
    return entry->second.object;
}

void Peer::put_arguments(Writer& message, const Arguments& arguments) {
    message.put(static_cast<std::uint32_t>(arguments.size()));
    for (const automation::Argument& argument : arguments) {
        message.put(std::string_view(argument.name));
        put(message, argument.value);
    }
}

void Peer::put_object(Writer& message, const ObjectPtr& object) {
    if (object == nullptr) {
        message.put(Kind::nothing);
    } else if (auto* proxy = dynamic_cast<Proxy*>(object.get());
               proxy != nullptr && proxy->belongs_to(*this)) {
        message.put(Kind::yours).put(proxy->handle());
        proxy->record().put_news(message);
    } else {
        const auto [known, is_new] = handles_.try_emplace(object.get(), last_handle_ + 1);
        if (is_new) ++last_handle_;
        Exported& entry = exported_[known->second];
        entry.object = object;
        ++entry.count;
        message.put(Kind::theirs).put(known->second);
        put_settled(message, is_new ? results_to_send(*object) : none_settled());
        put_record(message, is_new ? dynamic_cast<const RecordObject*>(object.get()) : nullptr);
    }
}

void Peer::put_settled(Writer& message, const std::vector<SettledMember>& members) {
    message.put(static_cast<std::uint32_t>(members.size()));
    for (const SettledMember& member : members) {
        const auto* const texts = std::get_if<Texts>(&member.results);
        message.put(std::string_view(member.name)).put(texts != nullptr);
        if (texts != nullptr)
            put_texts(message, *texts);
        else
            put(message, std::get<Value>(member.results));
    }
}

/// One member of those that `put_settled` wrote.
SettledMember Peer::read_settled(Reader& message, int depth) {
    std::string name = message.text();
    if (message.truth()) return {std::move(name), read_texts(message)};
    return {std::move(name), value(message, depth)};
}

void Peer::put_array(Writer& message, const Array& array) {
    message.put(Kind::array).put(array.lower_bound).put(array.element == Array::Element::text);
    message.put(static_cast<std::uint32_t>(array.items.size()));
    for (const Value& item : array.items)
        put(message, item);
}

void Peer::put(Writer& message, const Value& value) {
    if (const auto* text = value.if_holds<std::string>()) {
        if (manners_.sent) manners_.sent(*text);
        message.put(Kind::text).put(*text);
    } else if (const auto* truth = value.if_holds<bool>()) {
        message.put(Kind::truth).put(*truth);
    } else if (const auto* small = value.if_holds<std::int16_t>()) {
        message.put(Kind::int16).put(*small);
    } else if (const auto* number = value.if_holds<std::int32_t>()) {
        message.put(Kind::int32).put(*number);
    } else if (const auto* single = value.if_holds<float>()) {
        message.put(Kind::single).put(*single);
    } else if (const auto* real = value.if_holds<double>()) {
        message.put(Kind::real).put(*real);
    } else if (const auto* object = value.if_holds<ObjectPtr>()) {
        put_object(message, *object);
    } else if (const auto* array = value.if_holds<automation::ArrayPtr>()) {
        put_array(message, **array);
    } else {
        message.put(value.holds<automation::Missing>() ? Kind::missing
                    : value.holds<automation::Null>()  ? Kind::null
                                                       : Kind::empty);
    }
}

Value Peer::value(Reader& message, int depth) {
    switch (const auto kind = static_cast<Kind>(message.number<std::uint8_t>()); kind) {
        case Kind::empty:
            return {};
        case Kind::missing:
            return automation::Missing();
        case Kind::null:
            return automation::Null();
        case Kind::truth:
            return message.truth();
        case Kind::int16:
            return message.number<std::int16_t>();
        case Kind::int32:
            return message.number<std::int32_t>();
        case Kind::single:
            return message.number<float>();
        case Kind::real:
            return message.number<double>();
        case Kind::text:
            return message.text();
        case Kind::nothing:
            return ObjectPtr();
        case Kind::theirs:
            if (depth == only_plain) throw Garbled();
            return received(message, depth);
        case Kind::yours:
            if (depth >= in_settled) throw Garbled();
            return returned(message);
        case Kind::array:
            return array(message, depth + 1);
    }
    throw Garbled();
}

/// An object of the other side. One that comes as a settled result is new: objects that hold each other would never
/// go, and has no results that are objects, which would be a message without an end.
ObjectPtr Peer::received(Reader& message, int depth) {
    const auto handle = message.number<Handle>();
    std::weak_ptr<Proxy>& known = proxies_[handle];
    std::shared_ptr<Proxy> proxy = known.lock();
    if (proxy != nullptr && depth == in_settled) throw Garbled();
    if (proxy == nullptr) {
        proxy = std::make_shared<Proxy>(shared_from_this(), handle);
        known = proxy;
    }
    proxy->was_received();
    for (auto members = message.count(); members > 0; --members)
        proxy->settle(read_settled(message, depth == in_settled ? only_plain : in_settled));
    proxy->record().read(message);
    return proxy;
}

/// An object of this side, with what the other side has assigned to it.
ObjectPtr Peer::returned(Reader& message) const {
    ObjectPtr object = exported(message.number<Handle>());
    read_news(message, dynamic_cast<RecordObject*>(object.get()));
    return object;
}

Value Peer::array(Reader& message, int depth) {
    if (depth > deepest_array) throw Garbled();
    Array array;
    array.lower_bound = message.number<std::int32_t>();
    array.element = message.truth() ? Array::Element::text : Array::Element::any;
    for (auto count = message.count(); count > 0; --count)
        array.items.push_back(value(message, depth));
    return array;
}

}  // namespace foliant::hosts::process

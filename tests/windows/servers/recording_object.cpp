#include "windows/servers/recording_object.h"

#include <algorithm>
#include <new>
#include <olectl.h>

#include "platform/win32/text.h"
#include "platform/win32/variant.h"
#include "windows/servers/classes.h"
#include "windows/servers/record.h"

namespace foliant::tests::servers {

using platform::win32::to_utf16;
using platform::win32::to_utf8;

namespace {

/// Argument names get numbers from here on, as they come.
constexpr DISPID first_argument = 1000;
std::vector<std::string> argument_names;

DISPID argument_id(const std::string& name) {
    const auto known = std::find(argument_names.begin(), argument_names.end(), name);
    const auto place = known - argument_names.begin();
    if (known == argument_names.end()) argument_names.push_back(name);
    return first_argument + static_cast<DISPID>(place);
}

std::string flags_text(WORD flags) {
    std::string text;
    const auto add = [&](WORD bit, const char* name) {
        if ((flags & bit) != 0) text += (text.empty() ? "" : "|") + std::string(name);
    };
    add(DISPATCH_METHOD, "METHOD");
    add(DISPATCH_PROPERTYGET, "GET");
    add(DISPATCH_PROPERTYPUT, "PUT");
    add(DISPATCH_PROPERTYPUTREF, "PUTREF");
    return text;
}

void make_file(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(file, "%made", 5, &written, nullptr);
    CloseHandle(file);
}

bool has_type_library() {
    HKEY key = nullptr;
    const bool found =
        RegOpenKeyW(HKEY_CLASSES_ROOT, L"CLSID\\{1CD675B2-ECD1-11D1-B976-00600802DB86}\\TypeLib", &key) ==
        ERROR_SUCCESS;
    if (found) RegCloseKey(key);
    return found;
}

/// The list of the one connection point that an object has.
class OnePoint final : public IEnumConnectionPoints {
  public:
    explicit OnePoint(RecordingObject& point) : point_(point) { point_.AddRef(); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IEnumConnectionPoints);
        *out = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    HRESULT STDMETHODCALLTYPE Next(ULONG count, IConnectionPoint** points, ULONG* fetched) override {
        const bool gives = count > 0 && !given_;
        if (gives) {
            point_.AddRef();
            *points = &point_;
            given_ = true;
        }
        if (fetched != nullptr) *fetched = gives ? 1 : 0;
        return gives && count == 1 ? S_OK : S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Skip(ULONG) override {
        given_ = true;
        return S_FALSE;
    }
    HRESULT STDMETHODCALLTYPE Reset() override {
        given_ = false;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Clone(IEnumConnectionPoints** copy) override {
        *copy = new OnePoint(point_);
        return S_OK;
    }

  private:
    ~OnePoint() { point_.Release(); }

    RecordingObject& point_;
    bool given_ = false;
    ULONG references_ = 1;
};

VARIANT number_variant(LONG number) {
    VARIANT variant;
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

}  // namespace

RecordingObject::RecordingObject(std::string object, bool created)
    : object_(std::move(object)), created_(created) {
    ++live_objects;
    if (created_) record("create " + object_);
}

RecordingObject::~RecordingObject() {
    if (!sinks_.empty()) record("a sink of " + object_ + " was left behind");
    if (created_) record("release " + object_);
    --live_objects;
}

HRESULT RecordingObject::QueryInterface(REFIID id, void** out) {
    const bool has_events = object_ == "Distiller";
    *out = nullptr;
    if (IsEqualIID(id, IID_IUnknown) || IsEqualIID(id, IID_IDispatch)) *out = static_cast<IDispatch*>(this);
    if (has_events && IsEqualIID(id, IID_IConnectionPointContainer))
        *out = static_cast<IConnectionPointContainer*>(this);
    if (has_events && IsEqualIID(id, IID_IConnectionPoint)) *out = static_cast<IConnectionPoint*>(this);
    if (*out == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG RecordingObject::Release() {
    const auto left = static_cast<ULONG>(--references_);
    if (left == 0) delete this;
    return left;
}

HRESULT RecordingObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT RecordingObject::GetTypeInfo(UINT, LCID, ITypeInfo** type) {
    *type = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT RecordingObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    const std::string member = to_utf8(std::wstring_view(names[0]));
    const auto* row = std::find_if(std::begin(members), std::end(members),
                                   [&](const Member& m) { return m.object == object_ && m.name == member; });
    ids[0] = row == std::end(members) ? DISPID_UNKNOWN : static_cast<DISPID>(row - members + 1);
    for (UINT i = 1; i < count; ++i)
        ids[i] = argument_id(to_utf8(std::wstring_view(names[i])));
    return row == std::end(members) ? DISP_E_UNKNOWNNAME : S_OK;
}

std::string RecordingObject::arguments_text(const DISPPARAMS& parameters) const {
    std::string text;
    const auto add = [&](const std::string& argument) { text += (text.empty() ? "" : ", ") + argument; };
    for (UINT i = parameters.cArgs; i > parameters.cNamedArgs; --i)
        add(describe(parameters.rgvarg[i - 1]));
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        const DISPID id = parameters.rgdispidNamedArgs[i];
        const std::string value = describe(parameters.rgvarg[i]);
        add(id == DISPID_PROPERTYPUT
                ? value
                : argument_names.at(static_cast<std::size_t>(id - first_argument)) + ":=" + value);
    }
    return text;
}

HRESULT RecordingObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                EXCEPINFO*, UINT*) {
    const Member& member = members[id - 1];
    record(object_ + "." + std::string(member.name) + "(" + arguments_text(*parameters) + ") " +
           flags_text(flags));
    act(std::string(member.name), *parameters);
    if (result == nullptr) return S_OK;
    if (member.result == "1") {
        result->vt = VT_I2;
        result->iVal = 1;
    } else if (member.result.starts_with('"')) {
        result->bstrVal = platform::win32::Bstr(member.result.substr(1, member.result.size() - 2)).release();
        result->vt = VT_BSTR;
    } else if (!member.result.empty()) {
        result->pdispVal = new RecordingObject(std::string(member.result), member.result == "Document");
        result->vt = VT_DISPATCH;
    }
    return S_OK;
}

void RecordingObject::act(const std::string& member, const DISPPARAMS& parameters) {
    if (member == "PrintOut") {
        for (UINT i = 0; i < parameters.cNamedArgs; ++i)
            if (argument_names.at(static_cast<std::size_t>(parameters.rgdispidNamedArgs[i] -
                                                           first_argument)) == "Outputfilename")
                make_file(parameters.rgvarg[i].bstrVal);
    }
    if (member.starts_with("FileToPDF"))
        convert(parameters.rgvarg[parameters.cArgs - 1], parameters.rgvarg[parameters.cArgs - 2]);
}

void RecordingObject::convert(const VARIANT& input, const VARIANT& output) {
    raise_event(1, {input, output});
    raise_event(5, {number_variant(50)});
    raise_event(6, {number_variant(1)});
    make_file(output.bstrVal);
    raise_event(2, {input, output});
}

void RecordingObject::raise_event(int number, std::vector<VARIANT> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    const DISPID id = has_type_library() ? 27 - number : number;
    for (const auto& [cookie, sink] : sinks_)
        sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
}

HRESULT RecordingObject::EnumConnectionPoints(IEnumConnectionPoints** points) {
    *points = new OnePoint(*this);
    return S_OK;
}

HRESULT RecordingObject::FindConnectionPoint(REFIID id, IConnectionPoint** point) {
    *point = nullptr;
    if (!IsEqualIID(id, distiller_events)) return CONNECT_E_NOCONNECTION;
    *point = this;
    AddRef();
    return S_OK;
}

HRESULT RecordingObject::GetConnectionInterface(IID* id) {
    *id = distiller_events;
    return S_OK;
}

HRESULT RecordingObject::GetConnectionPointContainer(IConnectionPointContainer** container) {
    *container = this;
    AddRef();
    return S_OK;
}

HRESULT RecordingObject::Advise(IUnknown* sink, DWORD* cookie) {
    IDispatch* dispatch = nullptr;
    if (FAILED(sink->QueryInterface(distiller_events, reinterpret_cast<void**>(&dispatch))) &&
        FAILED(sink->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch))))
        return CONNECT_E_CANNOTCONNECT;
    *cookie = next_cookie_++;
    sinks_[*cookie] = dispatch;
    record("listen to " + object_);
    return S_OK;
}

HRESULT RecordingObject::Unadvise(DWORD cookie) {
    const auto sink = sinks_.find(cookie);
    if (sink == sinks_.end()) return CONNECT_E_NOCONNECTION;
    sink->second->Release();
    sinks_.erase(sink);
    record("stop listening to " + object_);
    return S_OK;
}

HRESULT RecordingObject::EnumConnections(IEnumConnections** connections) {
    *connections = nullptr;
    return E_NOTIMPL;
}

}  // namespace foliant::tests::servers

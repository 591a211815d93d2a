#include "windows/servers/recording_object.h"

#include <algorithm>
#include <new>
#include <olectl.h>
#include <sstream>

#include "platform/win32/com_pointer.h"
#include "platform/win32/text.h"
#include "platform/win32/variant.h"
#include "windows/servers/classes.h"
#include "windows/servers/dialogs.h"
#include "windows/servers/one_point.h"
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

/// Ends a call as a host does that cannot do it.
HRESULT end_badly(Ending ending, EXCEPINFO* raised) {
    if (ending == Ending::death) {
        before_death();
        TerminateProcess(GetCurrentProcess(), 1);
    }
    if (ending == Ending::bare_result || raised == nullptr) return E_ACCESSDENIED;
    *raised = {};
    raised->scode = static_cast<HRESULT>(0x800A03EC);  // run-time error 1004
    raised->bstrSource = SysAllocString(L"Recorded host");
    raised->bstrDescription = SysAllocString(L"The host cannot do that.");
    return DISP_E_EXCEPTION;
}

/// It lives as long as the program.
VARIANT text_variant(const std::string& text) {
    VARIANT variant;
    variant.vt = VT_BSTR;
    variant.bstrVal = platform::win32::Bstr(text).release();
    return variant;
}

VARIANT number_variant(LONG number) {
    VARIANT variant;
    variant.vt = VT_I4;
    variant.lVal = number;
    return variant;
}

}  // namespace

RecordingObject::RecordingObject(std::string object, std::shared_ptr<Scene> scene, bool is_host)
    : object_(std::move(object)), scene_(std::move(scene)), is_host_(is_host) {
    ++live_objects;
    ++scene_->objects;
    if (is_made(object_)) scene_->note("create " + object_);
}

RecordingObject::~RecordingObject() {
    --live_objects;
    const int left = --scene_->objects;
    if (!sinks_.empty()) scene_->note("a sink of " + object_ + " was left behind");
    const bool leaves_some = is_host_ && left > 0;
    if (is_host_ || is_made(object_))
        scene_->note("release " + object_ +
                     (leaves_some ? ", " + std::to_string(left) + " of its objects are left" : ""));
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
                                EXCEPINFO* raised, UINT*) {
    const Member& member = members[id - 1];
    if (member.name == "Open" || member.name.starts_with("FileToPDF"))
        scene_->see(parameters->rgvarg[parameters->cArgs - 1].bstrVal);
    const Ending ending = scene_->act(object_ + "." + std::string(member.name) + "(" +
                                      arguments_text(*parameters) + ") " + flags_text(flags));
    if (ending != Ending::good) return end_badly(ending, raised);
    act(std::string(member.name), *parameters);
    if (result == nullptr) return S_OK;
    if (member.result == "1") {
        result->vt = VT_I2;
        result->iVal = 1;
    } else if (member.result.starts_with('"')) {
        result->bstrVal = platform::win32::Bstr(member.result.substr(1, member.result.size() - 2)).release();
        result->vt = VT_BSTR;
    } else if (!member.result.empty()) {
        result->pdispVal = new RecordingObject(std::string(member.result), scene_, false);
        result->vt = VT_DISPATCH;
    }
    return S_OK;
}

void RecordingObject::act(const std::string& member, const DISPPARAMS& parameters) {
    if (member == "PrintOut") print(parameters);
    if (member == "Save") make_file(parameters.rgvarg[0].bstrVal);
    if (member.starts_with("FileToPDF"))
        convert(parameters.rgvarg[parameters.cArgs - 1], parameters.rgvarg[parameters.cArgs - 2]);
}

void RecordingObject::print(const DISPPARAMS& parameters) {
    for (UINT i = 0; i < parameters.cNamedArgs; ++i) {
        const auto name = static_cast<std::size_t>(parameters.rgdispidNamedArgs[i] - first_argument);
        for (const char* file : {"Outputfilename", "PrToFilename"})
            if (argument_names.at(name) == file) return make_file(parameters.rgvarg[i].bstrVal);
    }
    const PrinterAnswers answers = ask_where_to_print();
    scene_->note("dialog \"Save PDF File As\" ends with \"" + to_utf8(answers.file) + "\"");
    scene_->note(std::string("dialog \"Adobe PDF - Security\" ends with ") +
                 (answers.notice_closed ? "OK" : "Cancel"));
    if (!answers.file.empty()) make_file(answers.file);
}

void RecordingObject::convert(const VARIANT& input, const VARIANT& output) {
    std::istringstream postscript(read_file(input.bstrVal));
    bool fails = false;
    raise_event(1, {input, output});
    for (std::string line; std::getline(postscript, line);) {
        while (!line.empty() && line.back() == '\r')
            line.pop_back();
        if (line.ends_with(" prun")) scene_->note(object_ + " runs " + line);
        if (line.starts_with("%log ")) raise_event(4, {text_variant(line.substr(5))});
        if (line == "%fail") fails = true;
    }
    raise_event(5, {number_variant(50)});
    raise_event(6, {number_variant(1)});
    if (!fails) make_file(output.bstrVal);
    raise_event(fails ? 3 : 2, {input, output});
}

void RecordingObject::raise_event(int number, std::vector<VARIANT> arguments) {
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    const DISPID id = has_type_library() ? 27 - number : number;
    // A sink may leave, and its client let go of this object, while it is being told.
    using platform::win32::ComPointer;
    const auto alive = ComPointer<IDispatch>::share(this);
    std::map<DWORD, ComPointer<IDispatch>> listening;
    for (const auto& [cookie, sink] : sinks_)
        listening.emplace(cookie, ComPointer<IDispatch>::share(sink));
    for (const auto& [cookie, sink] : listening) {
        if (!sinks_.contains(cookie)) continue;
        sink->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                     nullptr);
    }
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
    if (scene_->act("listen to " + object_) != Ending::good) {
        dispatch->Release();
        return CONNECT_E_CANNOTCONNECT;
    }
    *cookie = next_cookie_++;
    sinks_[*cookie] = dispatch;
    return S_OK;
}

HRESULT RecordingObject::Unadvise(DWORD cookie) {
    const auto sink = sinks_.find(cookie);
    if (sink == sinks_.end()) return CONNECT_E_NOCONNECTION;
    sink->second->Release();
    sinks_.erase(sink);
    scene_->note("stop listening to " + object_);
    return S_OK;
}

HRESULT RecordingObject::EnumConnections(IEnumConnections** connections) {
    *connections = nullptr;
    return E_NOTIMPL;
}

}  // namespace foliant::tests::servers

#include "hosts/autocad/autocad_application.h"

#include <charconv>
#include <stdexcept>
#include <utility>
#include <vector>

#include "automation/coerce.h"
#include "automation/text.h"
#include "hosts/autocad/autocad_error.h"
#include "hosts/autocad/open_drawing.h"
#include "hosts/autocad/plot/painter.h"
#include "hosts/autocad/plot/plot.h"
#include "hosts/late_bound.h"
#include "hosts/pdf_printer.h"
#include "hosts/write_failure.h"

namespace foliant::hosts::autocad {

using automation::ObjectPtr;
using automation::to_text;
using automation::Value;

namespace {

/// A layout as the library has it in hand: to be made the active one.
class LayoutObject : public LateBound {
  public:
    LayoutObject(std::shared_ptr<const OpenDrawing> opened, std::size_t number)
        : LateBound(application_name), opened_(std::move(opened)), number_(number) {
        add_property("Name", [this] { return layout().name; });
        add_property("TabOrder", [this] { return static_cast<std::int32_t>(number_); });
        add_property("ModelType", [this] { return layout().is_model; });
    }

    const OpenDrawing* drawing() const noexcept { return opened_.get(); }
    std::size_t number() const noexcept { return number_; }

  private:
    const Layout& layout() const { return opened_->drawing.layouts()[number_]; }

    std::shared_ptr<const OpenDrawing> opened_;
    std::size_t number_;
};

/// A document, for the objects that it hands out.
class Document {
  public:
    Document(Machine& machine, const std::string& path)
        : machine_(machine), opened_(open_drawing(machine, path)) {}

    bool is_open() const noexcept { return opened_ != nullptr; }
    void close() noexcept { opened_.reset(); }

    const std::shared_ptr<const OpenDrawing>& opened() const {
        if (!opened_) throw autocad_error(general_failure, "The drawing is closed.");
        return opened_;
    }
    std::string name() const { return opened()->path.filename().string(); }

    ObjectPtr layout(const Value& index) const {
        return std::make_shared<LayoutObject>(opened(), find(index));
    }
    ObjectPtr active_layout() const { return std::make_shared<LayoutObject>(opened(), active_); }
    void activate(const Value& value) {
        const auto* const layout = dynamic_cast<const LayoutObject*>(&value.object());
        if (layout == nullptr || layout->drawing() != opened().get())
            throw autocad_error(general_failure,
                                "What is to be the active layout is no layout of " + name() + ".");
        active_ = layout->number();
    }

    void plot_to_device(const std::string& printer) const;
    void plot_to_file(const std::filesystem::path& file) const;

  private:
    std::size_t find(const Value& index) const;
    std::size_t numbered(std::int64_t number) const;
    std::string known_layouts() const;
    std::string pdf() const;

    Machine& machine_;
    std::shared_ptr<const OpenDrawing> opened_;
    std::size_t active_ = 0;
};

std::string Document::known_layouts() const {
    std::string text = "The layouts of " + opened()->path.string() + " are";
    std::size_t number = 0;
    for (const Layout& layout : opened()->drawing.layouts()) {
        (text += number == 0 ? " " : ", ") += std::to_string(number) + " \"" + layout.name + "\"";
        ++number;
    }
    return text + ".";
}

std::size_t Document::numbered(std::int64_t number) const {
    if (number >= 0 && static_cast<std::size_t>(number) < opened()->drawing.layouts().size())
        return static_cast<std::size_t>(number);
    throw autocad_error(key_not_found,
                        "There is no layout " + std::to_string(number) + ". " + known_layouts());
}

/// A text that names no layout may hold its number: that is what a command line can say.
std::size_t Document::find(const Value& index) const {
    if (!is_given(index)) throw autocad_error(key_not_found, "No layout is named. " + known_layouts());
    if (!index.holds<std::string>()) return numbered(automation::to_int32(index));
    const std::string name = to_text(index);
    const auto& layouts = opened()->drawing.layouts();
    for (std::size_t i = 0; i < layouts.size(); ++i)
        if (automation::equal_ignoring_case(layouts[i].name, name)) return i;
    std::int64_t number = 0;
    const char* const end = name.data() + name.size();
    if (const auto [stop, problem] = std::from_chars(name.data(), end, number);
        problem == std::errc() && stop == end)
        return numbered(number);
    throw autocad_error(key_not_found, "There is no layout \"" + name + "\". " + known_layouts());
}

std::string Document::pdf() const {
    const Layout& layout = opened()->drawing.layouts()[active_];
    const std::string what =
        "Cannot plot the layout \"" + layout.name + "\" of " + opened()->path.string() + ": ";
    try {
        return plot(opened()->drawing, layout, name());
    } catch (const NothingToPlot& failure) {
        throw autocad_error(general_failure, what + failure.what() + ". " + known_layouts());
    } catch (const std::runtime_error& failure) {
        throw autocad_error(general_failure, what + failure.what() + ".");
    }
}

void Document::plot_to_file(const std::filesystem::path& file) const {
    try {
        const std::unique_ptr<OutputFile> output = machine_.make_output(file);
        output->write(pdf());
        output->commit();
    } catch (const std::filesystem::filesystem_error& failure) {
        throw write_failure(application_name, failure);
    }
}

void Document::plot_to_device(const std::string& printer) const {
    if (machine_.is_pdf_printer(printer)) {
        const auto file = ask_for_printed_file(machine_, name());
        if (!file) throw autocad_error(general_failure, not_printed(name()));
        plot_to_file(*file);
        show_printed_file(machine_, *file);
        return;
    }
    if (!machine_.has_printer(printer))
        throw autocad_error(general_failure,
                            "There is no printer \"" + printer +
                                "\". Give the name of the PDF printer, or of a queue that lpstat -e lists.");
    const std::filesystem::path job = machine_.private_folder() / "plot.pdf";
    plot_to_file(job);
    machine_.print(printer, job, name());
    std::filesystem::remove(job);
}

using DocumentPtr = std::shared_ptr<Document>;

ObjectPtr make_plot(Machine& machine, const DocumentPtr& document) {
    auto plot = std::make_shared<LateBound>(application_name);
    plot->add_method("PlotToDevice", {"plotConfig"}, [&machine, document](const Bound& arguments) {
        document->plot_to_device(is_given(arguments[0]) ? to_text(arguments[0]) : machine.default_printer());
        return true;
    });
    plot->add_method("PlotToFile", {"plotFile", "plotConfig"}, [document](const Bound& arguments) {
        document->plot_to_file(to_text(arguments[0]));
        return true;
    });
    return plot;
}

ObjectPtr make_layouts(const DocumentPtr& document) {
    auto layouts = std::make_shared<LateBound>(application_name);
    layouts->add_property("Count", [document] {
        return static_cast<std::int32_t>(document->opened()->drawing.layouts().size());
    });
    layouts->add_method("Item", {"Index"},
                        [document](const Bound& arguments) { return document->layout(arguments[0]); });
    return layouts;
}

/// A document gives its layouts, or one of them when it is asked with an index; an index that was left out is
/// one all the same.
class DocumentObject : public LateBound {
  public:
    explicit DocumentObject(DocumentPtr document)
        : LateBound(application_name), document_(std::move(document)) {}

    Value invoke(automation::Access access, std::string_view member,
                 const automation::Arguments& arguments) override {
        if (!automation::equal_ignoring_case(member, "Layouts"))
            return LateBound::invoke(access, member, arguments);
        const ObjectPtr layouts = make_layouts(document_);
        return arguments.empty() ? Value(layouts) : layouts->invoke(access, "Item", arguments);
    }

  private:
    DocumentPtr document_;
};

ObjectPtr make_document(Machine& machine, const DocumentPtr& document) {
    auto object = std::make_shared<DocumentObject>(document);
    object->add_property("Name", [document] { return document->name(); });
    object->add_property("FullName", [document] { return document->opened()->path.string(); });
    object->add_property("ReadOnly", [] { return true; });
    object->add_property(
        "ActiveLayout", [document] { return document->active_layout(); },
        [document](const Value& layout) { document->activate(layout); });
    object->add_property("Plot", [&machine, document] {
        document->opened();
        return make_plot(machine, document);
    });
    object->add_method("Close", {"SaveChanges", "FileName"}, [document](const Bound&) {
        document->close();
        return Value();
    });
    return object;
}

/// One running application.
struct Running {
    Machine& machine;
    std::vector<std::weak_ptr<Document>> documents;
    bool has_quit = false;

    void require_running() const {
        if (has_quit) throw autocad_error(not_running, "AutoCAD has been quit.");
    }
    void quit() {
        has_quit = true;
        for (const auto& document : documents)
            if (const auto held = document.lock()) held->close();
    }
};

ObjectPtr make_documents(const std::shared_ptr<Running>& running) {
    auto documents = std::make_shared<LateBound>(application_name);
    documents->add_property("Count", [running] {
        std::int32_t count = 0;
        for (const auto& document : running->documents)
            if (const auto held = document.lock(); held && held->is_open()) ++count;
        return count;
    });
    documents->add_method("Open", {"Name", "ReadOnly", "Password"}, [running](const Bound& arguments) {
        running->require_running();
        const auto document = std::make_shared<Document>(running->machine, to_text(arguments[0]));
        running->documents.push_back(document);
        return make_document(running->machine, document);
    });
    return documents;
}

}  // namespace

ObjectPtr make_autocad_application(Machine& machine) {
    const auto running = std::make_shared<Running>(Running{machine, {}});
    auto application = std::make_shared<LateBound>(application_name);
    application->add_property(
        "Application", [self = std::weak_ptr<LateBound>(application)] { return ObjectPtr(self.lock()); });
    application->add_property("Documents", [running] {
        running->require_running();
        return make_documents(running);
    });
    application->add_method("Quit", {}, [running](const Bound&) {
        running->quit();
        return Value();
    });
    return application;
}

}  // namespace foliant::hosts::autocad

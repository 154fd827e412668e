#pragma once

#include <functional>
#include <memory>
#include <typeindex>
#include <unordered_map>

#include "platform/fault.h"

namespace orvent::forms {

/// Shows the modal window of a form of this type and comes back when it has been closed.
template <class Form>
class DialogPort {
  public:
    virtual ~DialogPort() = default;
    virtual void show(Form& form) = 0;
};

/// Opens the window of a form that lets the rest of the program go on. The window keeps the form until it is closed.
template <class Form>
class WindowPort {
  public:
    virtual ~WindowPort() = default;
    virtual void open(std::unique_ptr<Form> form) = 0;
};

/// The windows of all dialogs, each found by the type of its form: a dialog is made known by one line, where its
/// window is known, and shown from anywhere.
class Dialogs {
  public:
    /// Makes the window known that `show` opens; a second one for the same form replaces the first.
    template <class Form>
    void add(std::function<void(Form&)> show) {
        struct Port : DialogPort<Form> {
            void show(Form& form) override { action(form); }
            std::function<void(Form&)> action;
        };
        auto port = std::make_shared<Port>();
        port->action = std::move(show);
        ports_[typeid(DialogPort<Form>)] = std::shared_ptr<DialogPort<Form>>(std::move(port));
    }

    /// The same for a window that keeps its form.
    template <class Form>
    void addWindow(std::function<void(std::unique_ptr<Form>)> open) {
        struct Port : WindowPort<Form> {
            void open(std::unique_ptr<Form> form) override { action(std::move(form)); }
            std::function<void(std::unique_ptr<Form>)> action;
        };
        auto port = std::make_shared<Port>();
        port->action = std::move(open);
        ports_[typeid(WindowPort<Form>)] = std::shared_ptr<WindowPort<Form>>(std::move(port));
    }

    template <class Form>
    void show(Form& form) const {
        find<DialogPort<Form>>().show(form);
    }
    template <class Form>
    void open(std::unique_ptr<Form> form) const {
        find<WindowPort<Form>>().open(std::move(form));
    }

  private:
    template <class Port>
    Port& find() const {
        const auto port = ports_.find(typeid(Port));
        if (port == ports_.end()) {
            throw platform::Fault("This dialog has no window.");
        }
        return *static_cast<Port*>(port->second.get());
    }

    std::unordered_map<std::type_index, std::shared_ptr<void>> ports_;
};

}  // namespace orvent::forms

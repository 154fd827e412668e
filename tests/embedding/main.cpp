#include "canvas/draw_form.h"

namespace {

class NoMessages : public orvent::platform::MessageBox {
  public:
    orvent::platform::Answer show(const std::string&, const std::string&, orvent::platform::Icon,
                                  orvent::platform::Buttons) override {
        return orvent::platform::Answer::ok;
    }
};

}  // namespace

int main() {
    using namespace orvent::canvas;
    NoMessages messages;
    const CanvasSettings settings;
    DrawForm form({messages, settings});
    form.Labels.Add({0, 0, 1050, 450}, "RS1", NodeTypeRecordSet);
    return form.nodeNamed("RS1") ? 0 : 1;
}

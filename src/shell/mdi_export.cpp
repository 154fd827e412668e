// The frame's part in what a scenario is written down as.

#include "shell/exporters.h"
#include "shell/mdi_form.h"

namespace orvent::shell {

/// Writes the scenario in front into the data folder.
void MDIForm1::exportAs(std::string_view exporter) {
    canvas::DrawForm& form = *activeScenario();
    const Exporter& way = exporterNamed(exporter);
    ExportServices services{catalogue_.tables, ports_.progress, options_.TransDepth};
    services.consumerSemantics = consumerSemanticsOf(documentTypes_);
    services.functions = options_.functions;
    if (way.name == kProgramExporter) {
        services.sample = lists_.rows().sampleOf(form);
        services.facts = mayWriteFacts(form, services, ports_.messages);
    }
    if (way.needs == Exporter::Needs::dialect) {
        const bool kept = form.KeepDuplicates;
        if (!askForSql(way, form, services, options_.SqlDialect, host_.dialogs())) {
            return;
        }
        ports_.store.setValue("General", "SqlDialect", options_.SqlDialect);
        if (form.KeepDuplicates != kept) {
            lists_.rows().takeDuplicates(form);
        }
    }
    ports_.messages.tell(writeExport(way, form, services, ports_.folder.file("\\", form.Caption(), way.suffix)) +
                         " Created");
}

}  // namespace orvent::shell

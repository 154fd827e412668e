#include "qt/shell/about_form.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/forms/program_header.h"
#include "qt/platform/application.h"

namespace orvent::qt {

namespace {

constexpr int kAboutWidth = 340;

}  // namespace

AboutForm::AboutForm(QWidget* parent) : FormWindow(tr("About ORVENT II"), parent) {
    setObjectName(QStringLiteral("AboutForm"));
    body().addWidget(newProgramHeader(tr("Version %1").arg(programVersion()), this));
    body().addWidget(newHint(tr("Free software under the MIT licence."), this));
    body().addStretch();
    setMinimumWidth(kAboutWidth);
    addAccept(QStringLiteral("cmdOK"), tr("&OK"), [] { return true; });
}

}  // namespace orvent::qt

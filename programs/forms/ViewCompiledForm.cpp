#include "programs/forms/ViewCompiledForm.h"

#include <QFontDatabase>

#include "programs/ProgramActions.h"
#include "ui_ViewCompiledForm.h"
#include "widgets/WireText.h"

namespace zlt {
namespace {

const FileChoice saveChoice{"Save Compiled Program As", "Compiled Program Files (*.cpg)|*.cpg", ""};

}  // namespace

ViewCompiledForm::ViewCompiledForm(const Services& services, std::string_view listing,
                                   QWidget* parent)
    : Screen(services, parent), m_listing(listing), m_ui(std::make_unique<Ui::ViewCompiledForm>()) {
    m_ui->setupUi(this);
    m_ui->ProgText->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_ui->ProgText->setPlainText(shownText(listing));
    applyScreenRules();
    handlers.onClick(*m_ui->Save, [this](bool) { Save_Click(); });
    handlers.onClick(*m_ui->Close, [this](bool) { Close_Click(); });
}

ViewCompiledForm::~ViewCompiledForm() = default;

void ViewCompiledForm::Save_Click() {
    saveAsLines(services(), saveChoice, [this] { return m_listing; });
}

}  // namespace zlt

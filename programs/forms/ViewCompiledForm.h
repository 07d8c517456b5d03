#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "widgets/Screen.h"

namespace Ui {
class ViewCompiledForm;
}

namespace zlt {

/// Shows the compiler's listing and saves it.
class ViewCompiledForm : public Screen {
    Q_OBJECT

 public:
    ViewCompiledForm(const Services& services, std::string_view listing, QWidget* parent);
    ~ViewCompiledForm() override;

 private:
    void Save_Click();
    void Close_Click() { done(Accepted); }
    void closeScreen() override { Close_Click(); }

    std::string m_listing;
    std::unique_ptr<Ui::ViewCompiledForm> m_ui;
};

}  // namespace zlt

#pragma once

#include <QString>
#include <functional>
#include <memory>
#include <string>

#include "parameters/ParameterTable.h"
#include "parameters/forms/ChangeMark.h"

class QAbstractButton;
class QLineEdit;
class QRadioButton;

namespace Ui {
class SetupParameters;
}

namespace zlt {

class EditableChoiceBox;

/// The control of one field as a text, with the mark beside it; one class for each kind. A check
/// box and a pair of options hold "0" or "1".
class ParameterControl {
 public:
    virtual ~ParameterControl() = default;
    ParameterControl(const ParameterControl&) = delete;
    ParameterControl& operator=(const ParameterControl&) = delete;

    /// Calls `changed` whenever the control holds something else, by whatever means but show().
    virtual void onChange(const std::function<void()>& changed) = 0;

    [[nodiscard]] virtual QString text() const = 0;
    /// Without a choice having been made; Latin-1.
    virtual void show(const std::string& text) = 0;
    /// A word of the controller's (Latin-1) as this control puts it.
    [[nodiscard]] virtual QString inWords(const std::string& word) const;

    /// Puts the cursor into it.
    virtual void point();
    void disable(const QString& reason);
    /// Marks the control, and says why.
    void mark(Standing standing, const QString& reason);

 protected:
    ParameterControl(QWidget& widget, ChangeMark& mark) : m_widget(widget), m_mark(mark) {}

    QWidget& m_widget;
    ChangeMark& m_mark;
};

/// A text to type.
class TextControl : public ParameterControl {
 public:
    TextControl(QLineEdit& field, ChangeMark& mark);
    void onChange(const std::function<void()>& changed) override;
    [[nodiscard]] QString text() const override;
    void show(const std::string& text) override;
    void point() override;

 private:
    QLineEdit& m_field;
};

/// A text to type or to choose.
class ChoiceControl : public ParameterControl {
 public:
    ChoiceControl(EditableChoiceBox& box, ChangeMark& mark);
    void onChange(const std::function<void()>& changed) override;
    [[nodiscard]] QString text() const override;
    void show(const std::string& text) override;
    void point() override;

 private:
    EditableChoiceBox& m_box;
};

/// A mark to set.
class CheckControl : public ParameterControl {
 public:
    CheckControl(QAbstractButton& button, ChangeMark& mark);
    void onChange(const std::function<void()>& changed) override;
    [[nodiscard]] QString text() const override;
    void show(const std::string& text) override;
    [[nodiscard]] QString inWords(const std::string& word) const override;

 protected:
    QAbstractButton& m_button;  ///< set for 1
};

/// Two option buttons, of which one is always set.
class PairControl : public CheckControl {
 public:
    PairControl(QRadioButton& clear, QRadioButton& set, ChangeMark& mark);
    void show(const std::string& text) override;

 private:
    QRadioButton& m_clear;
};

/// The control of a field on the setup screen.
std::unique_ptr<ParameterControl> makeControl(ParameterField field, Ui::SetupParameters& ui);

}  // namespace zlt

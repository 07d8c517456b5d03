#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "parameters/ParameterTable.h"
#include "parameters/forms/ChangeMark.h"

class QAbstractButton;
class QLineEdit;

namespace zlt {

class EditableChoiceBox;

/// The control of one field, whatever its kind, as a text, with the mark beside it. A check
/// box and a pair of option buttons hold "0" or "1".
class ParameterControl {
 public:
    /// Finds the field's control, and its mark ("<control>Mark"), on the screen.
    ParameterControl(QWidget& screen, ParameterField field);

    /// Calls `changed` whenever the control holds something else, by whatever means.
    void onChange(const std::function<void()>& changed);

    QString text() const;
    /// Without a choice having been made.
    void show(const std::string& text);
    void disable(const QString& reason);

    /// Marks the control by what the controller last said of it, if it has, and says how it
    /// stands.
    ChangeMark::State compare(const std::optional<std::string>& word);

 private:
    QWidget& widget() const;

    EditableChoiceBox* m_box;
    QLineEdit* m_field;
    QAbstractButton* m_button;       ///< set for 1
    QAbstractButton* m_clearButton;  ///< set for 0; null but for a pair
    ChangeMark* m_mark;
};

}  // namespace zlt

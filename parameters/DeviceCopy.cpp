#include "parameters/DeviceCopy.h"

namespace zlt {
namespace {

const std::optional<std::string> nothing;

}  // namespace

std::optional<std::string>* DeviceCopy::pendingPlace(ParameterField field) const {
    if (field == ParameterField::deviceId)
        return &m_note->pendingId;
    if (field == ParameterField::baudRate)
        return &m_note->pendingBaudRate;
    return nullptr;
}

const std::optional<std::string>& DeviceCopy::pending(ParameterField field) const {
    const auto* place = pendingPlace(field);
    return place ? *place : nothing;
}

std::optional<std::string> DeviceCopy::afterPowerUp(ParameterField field) const {
    if (pending(field))
        return pending(field);
    const auto unstored = m_note->unstored.find(parameterName(field));
    return unstored == m_note->unstored.end() ? word(field) : unstored->second;
}

bool DeviceCopy::isUnstored(ParameterField field) const {
    return m_note->unstored.contains(parameterName(field));
}

void DeviceCopy::noteRead(const FieldText& word) {
    if (has(word.field))
        known(word.field) = {word.text, std::nullopt};
}

void DeviceCopy::noteUnread(FieldRange fields) {
    for (std::size_t place = 0; place < fields.count; ++place)
        known(fields[place]) = {};
}

/// Before a field changes: what it is by now is what flash holds, unless it was changed before.
void DeviceCopy::keepFlashWord(ParameterField field) {
    m_note->unstored.try_emplace(parameterName(field), word(field));
}

/// What was changed and changed back needs no store.
void DeviceCopy::dropIfInFlash(ParameterField field) {
    const auto kept = m_note->unstored.find(parameterName(field));
    if (kept->second == word(field))
        m_note->unstored.erase(kept);
}

bool DeviceCopy::noteAccepted(const Parameter& parameter, const ParameterValues& values) {
    bool changed = false;
    for (std::size_t place = 0; place < parameter.fields.count; ++place) {
        const ParameterField field = parameter.fields[place];
        if (!has(field))
            continue;  // written all the same, and nothing has changed
        const std::string& text = values[field];
        known(field).refusal.reset();
        if (auto* pending = pendingPlace(field)) {
            keepFlashWord(field);
            *pending = asTaken(field, text);
            changed = true;
            continue;
        }
        if (word(field) == text)
            continue;
        changed = true;
        keepFlashWord(field);
        noteRead({field, text});
        dropIfInFlash(field);
    }
    return changed;
}

void DeviceCopy::noteRefused(const Parameter& parameter, const ParameterValues& values,
                             std::string_view reply) {
    const auto differs = [&](ParameterField field) { return word(field) != values[field]; };
    bool anyDiffers = false;
    for (std::size_t place = 0; place < parameter.fields.count; ++place)
        anyDiffers = anyDiffers || differs(parameter.fields[place]);
    for (std::size_t place = 0; place < parameter.fields.count; ++place) {
        const ParameterField field = parameter.fields[place];
        if (!anyDiffers || differs(field))
            known(field).refusal = {values[field], std::string(reply)};
    }
}

void DeviceCopy::noteLost(const Parameter& parameter) {
    for (std::size_t place = 0; place < parameter.fields.count; ++place) {
        const ParameterField field = parameter.fields[place];
        if (!has(field))
            continue;
        keepFlashWord(field);
        if (!pendingPlace(field))
            known(field) = {};
    }
}

void DeviceCopy::noteStoreLost() {
    for (auto& [name, flashWord] : m_note->unstored)
        flashWord.reset();
}

}  // namespace zlt

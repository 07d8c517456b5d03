#include "programs/forms/ProgramDraft.h"

#include <QPlainTextDocumentLayout>
#include <QTextCursor>
#include <stdexcept>
#include <system_error>

#include "widgets/WireText.h"

namespace zlt {

ProgramDraft::ProgramDraft(const Services& services)
    : m_services(services), m_texts(services.files, services.dataFolder) {
    m_document.setDocumentLayout(new QPlainTextDocumentLayout(&m_document));
    m_services.programEnd.keepUnsaved = [this] { (void)keep(); };
}

ProgramDraft::~ProgramDraft() {
    m_services.programEnd.keepUnsaved = {};
}

void ProgramDraft::markSaved() {
    m_document.setModified(false);
    m_texts.forget();
}

std::optional<WriteFailure> ProgramDraft::keep() {
    if (m_document.isModified() && !m_document.isEmpty())
        return m_texts.keep(unsavedText());
    m_texts.forget();
    return std::nullopt;
}

std::string ProgramDraft::unsavedText() const {
    // In UTF-8, as a text may hold what no program file can.
    QString raw = m_document.toRawText();
    raw.replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
    raw.replace(QChar::LineSeparator, QStringLiteral("\r\n"));
    return raw.toStdString();
}

void ProgramDraft::openKept() {
    const auto file = m_texts.left();
    if (!file)
        return;
    const FileContent content = m_services.files.read(*file);
    const auto text = content.whole();
    if (!text)
        throw std::runtime_error(notRead(*file, content));
    (void)keep();
    m_texts.leave();  // what stood here so far is not lost for it
    replaceText(m_document, fromUtf8(*text));
    std::error_code ignored;
    if (!keep())
        std::filesystem::remove(*file, ignored);
}

void ProgramDraft::dropKept() {
    std::error_code ignored;
    if (const auto file = m_texts.left())
        std::filesystem::remove(*file, ignored);
}

void replaceText(QTextDocument& document, const QString& text) {
    QTextCursor all(&document);
    all.beginEditBlock();
    all.select(QTextCursor::Document);
    all.insertText(text);
    all.endEditBlock();
}

}  // namespace zlt

#include "programs/forms/ProgramDraft.h"

#include <QPlainTextDocumentLayout>
#include <QTextCursor>
#include <stdexcept>
#include <system_error>

#include "widgets/WireText.h"

namespace zlt {

ProgramDraft::ProgramDraft(const Services& services)
    : m_services(services), m_file(services.files), m_texts(services.files, services.dataFolder) {
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
        // In UTF-8, as a text may hold what no program file can.
        return m_texts.keep(wholeTextWithLineEnds(m_document).toStdString());
    m_texts.forget();
    return std::nullopt;
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
    m_file.forget();
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

QString wholeText(const QTextDocument& document) {
    QString raw = document.toRawText();
    raw.replace(QChar::LineSeparator, QChar::ParagraphSeparator);
    return raw;
}

QString wholeTextWithLineEnds(const QTextDocument& document) {
    return wholeText(document).replace(QChar::ParagraphSeparator, QStringLiteral("\r\n"));
}

void replaceText(QTextDocument& document, const QString& text) {
    QTextCursor all(&document);
    all.beginEditBlock();
    all.select(QTextCursor::Document);
    all.insertText(text);
    all.endEditBlock();
}

}  // namespace zlt

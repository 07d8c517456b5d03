#include "programs/DownloadedText.h"

#include <utility>

#include "platform/Text.h"
#include "programs/ProgramText.h"
#include "programs/ToolRunner.h"

namespace zlt {

void DownloadedText::compiled(std::string text, std::string listing) {
    m_compiledText = std::move(text);
    m_listing = std::move(listing);
}

void DownloadedText::downloaded(std::string_view listing) {
    forget();
    if (m_listing.empty() || listing != m_listing)
        return;
    m_text = m_compiledText;
    const auto lines = splitLines(WriteTextAsLines(m_compiledText).value_or("")).size();
    const int inListing = compiledLineCount(m_listing);
    m_lines = static_cast<int>(lines) == inListing ? inListing : 0;
}

std::optional<int> DownloadedText::lineOf(std::int32_t counter) const {
    if (!m_text || counter < 0 || counter >= m_lines)
        return std::nullopt;
    return counter + 1;
}

}  // namespace zlt

// The parameter file: read whole or refused in words, and what was read is saved as it was.

#include "parameters/ParameterFile.h"

#include <algorithm>

#include "Check.h"
#include "platform/Text.h"

void zlt::fuzz::check(std::string_view input) {
    std::vector<FieldText> fields;
    try {
        fields = readParameterFile(input);
    } catch (const MalformedParameterFile& error) {
        const std::string_view message = error.what();
        ZLT_CHECK(isUtf8(message));
        ZLT_CHECK(holdsNoLineEnd(message));
        ZLT_CHECK(message.starts_with("Line ") && message.size() < 200);
        return;
    }
    // Twelve lines, of which one is a word of five bits; "DOBOOT" is in no file.
    ZLT_CHECK(fields.size() == parameterFieldCount - 1);
    ParameterValues values;
    for (const FieldText& field : fields)
        values[field.field] = field.text;
    const std::string file = parameterFileText(values);
    ZLT_CHECK(splitLines(file).size() == 12);
    const auto same = [](const FieldText& a, const FieldText& b) {
        return a.field == b.field && a.text == b.text;
    };
    ZLT_CHECK(std::ranges::equal(readParameterFile(file), fields, same));
}

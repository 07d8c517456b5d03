// The parameter file: read whole or refused in words, and what was read is saved as it was.

#include "parameters/ParameterFile.h"

#include "platform/Lines.h"
#include "tests/fuzz/Check.h"

namespace {

zlt::ParameterValues valuesOf(const std::vector<zlt::FieldText>& fields) {
    zlt::ParameterValues values;
    for (const zlt::FieldText& field : fields)
        values[field.field] = field.text;
    return values;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<zlt::FieldText> fields;
    try {
        fields = zlt::readParameterFile(zlt::fuzz::textOf(data, size));
    } catch (const zlt::MalformedParameterFile& error) {
        const std::string_view message = error.what();
        ZLT_CHECK(zlt::fuzz::isUtf8(message));
        ZLT_CHECK(zlt::fuzz::holdsNoLineEnd(message));
        ZLT_CHECK(message.starts_with("Line ") && message.size() < 200);
        return 0;
    }
    // Twelve lines, of which one is a word of five bits; "DOBOOT" is in no file.
    ZLT_CHECK(fields.size() == zlt::parameterFieldCount - 1);
    const std::string file = zlt::parameterFileText(valuesOf(fields));
    ZLT_CHECK(zlt::splitLines(file).size() == 12);
    const auto again = zlt::readParameterFile(file);
    ZLT_CHECK(again.size() == fields.size());
    for (std::size_t place = 0; place < fields.size(); ++place) {
        ZLT_CHECK(again[place].field == fields[place].field);
        ZLT_CHECK(again[place].text == fields[place].text);
    }
    return 0;
}

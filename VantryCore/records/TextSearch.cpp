#include "VantryCore/records/TextSearch.h"

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace vantry {
namespace {

const icu::Normalizer2& decomposer() {
    UErrorCode status = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFDInstance(status);
}

const icu::Normalizer2& compatibility() {
    UErrorCode status = U_ZERO_ERROR;
    return *icu::Normalizer2::getNFKDInstance(status);
}

bool isOfOtherWidth(UChar32 point) {
    const int type = u_getIntPropertyValue(point, UCHAR_DECOMPOSITION_TYPE);
    return type == U_DT_WIDE || type == U_DT_NARROW;
}

bool isMark(UChar32 point) {
    return u_charType(point) == U_NON_SPACING_MARK;
}

template <class Visit>
void forEachPoint(const icu::UnicodeString& text, const Visit& visit) {
    for (int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1))
        visit(text.char32At(at));
}

}  // namespace

std::string searchForm(std::string_view text) {
    const auto given = icu::UnicodeString::fromUTF8({text.data(), static_cast<int32_t>(text.size())});
    icu::UnicodeString ofOneWidth;
    forEachPoint(given, [&](UChar32 point) {
        icu::UnicodeString plain;
        if (isOfOtherWidth(point) && compatibility().getDecomposition(point, plain))
            ofOneWidth.append(plain);
        else
            ofOneWidth.append(point);
    });
    ofOneWidth.foldCase();
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString decomposed = decomposer().normalize(ofOneWidth, status);
    icu::UnicodeString bare;
    forEachPoint(U_SUCCESS(status) ? decomposed : ofOneWidth, [&](UChar32 point) {
        if (!isMark(point))
            bare.append(point);
    });
    std::string form;
    bare.toUTF8String(form);
    return form;
}

TextQuery::TextQuery(std::string_view query)
    : form(searchForm(query))
    , isEmpty(query.empty()) {}

bool TextQuery::isIn(std::string_view text) const {
    if (isEmpty)
        return true;
    return !form.empty() && searchForm(text).find(form) != std::string::npos;
}

}  // namespace vantry

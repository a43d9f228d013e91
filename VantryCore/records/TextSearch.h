#pragma once

#include <string>
#include <string_view>

namespace vantry {

/// A text in the form in which a person looks for it: without marks (general category Mn), without the
/// difference of upper and lower case (full default case folding) and of full and half width (the wide and
/// narrow decompositions of the Unicode character database), decomposed.
[[nodiscard]] std::string searchForm(std::string_view text);

/// What a person looks for. An empty query is found in every text; one of nothing but marks in none.
class TextQuery {
public:
    explicit TextQuery(std::string_view query);

    [[nodiscard]] bool isIn(std::string_view text) const;

private:
    std::string form;
    bool isEmpty;
};

}  // namespace vantry

#pragma once
// Comparing records by what they hold, whatever bytes each was read from:
// a record read back from the file it was written to has the same fields,
// while its source bytes are those of the new file.

namespace marl {

// Whether two records hold the same fields, `Source` left out.
template <typename Record> bool sameFields(const Record& a, const Record& b) {
    if (a.Source == b.Source)
        return a == b;
    Record left = a;
    left.Source = b.Source;
    return left == b;
}

} // namespace marl

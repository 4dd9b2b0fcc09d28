#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

namespace quillon::validation {

/// Where the start tag of an element stands in markup, in bytes.
struct TagPlace {
    /// Of its name.
    qsizetype at = 0;
    qsizetype length = 0;
    /// Behind its last character.
    qsizetype end = 0;
};

/// The places of the start tags of elements, by their 0-based numbers in the order of the markup;
/// the numbers ascend. Those that are not there are left out from the first one on. The markup need
/// not be well-formed.
std::vector<TagPlace> tagPlaces(QByteArrayView markup, const std::vector<quint32> &wanted);

/// Where the attribute of that name stands in a start tag, its value and quotation marks included;
/// the name of the element when it is not there.
TagPlace attributePlace(QByteArrayView markup, const TagPlace &tag, const QByteArray &name);

} // namespace quillon::validation

#pragma once

#include <QString>

/// Looks through an XML document from the network before a DOM is built of it: a DOM is recursive and costs a
/// multiple of the text.
class XmlCheck
{
public:
    static constexpr int maximumDepth = 32;
    static constexpr int maximumElements = 20000;
    static constexpr int maximumAttributes = 100; ///< of one element

    /// Why the document is not to be read: the first fault, the first limit passed or a document type. Empty for one
    /// that is fine.
    static QString faultOf(QString const& document);
};

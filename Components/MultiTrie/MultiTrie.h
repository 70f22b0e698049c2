#pragma once

#include "MultiTrieNode.h"

#include <QString>
#include <QStringList>

#include <utility>

/// A trie of sets of values: keys are texts of parts, and keys that begin with the same parts share their nodes.
///
/// A key costs what it is long, whatever the trie holds. Nodes without use are freed at once, all but the root. Not
/// for several threads at a time.
template<typename T>
class MultiTrie
{
public:
    /// Keys are split at the delimiter, or into their characters if that is empty; in lower case unless cases differ.
    MultiTrie(QString delimiter, bool caseSensitive) : _delimiter(std::move(delimiter)), _caseSensitive(caseSensitive)
    {
    }

    /// Adds a value to those of the key; one that is there already stays as it is.
    void insert(QString const& key, T const& value) { _root._insert(splitKey(key), value); }

    /// Removes a value from those of the key, if it is there.
    void remove(QString const& key, T const& value) { _root._remove(splitKey(key), value); }

    /// The node of the key. Where there is none: null, or, if exact is given, the deepest node on the way to it. Sets
    /// *exact to whether it is the node of the key. Borrowed until the next change.
    MultiTrieNode<T> const* find(QString const& key, bool* exact) const;

    /// The parts of a key. Between two delimiters is an empty part; an empty key has none.
    QStringList splitKey(QString const& key) const;

    /// A line for each node, see MultiTrieNode.
    QString toString() const { return _root.toString(0); }

private:
    QString const _delimiter;
    bool const _caseSensitive;
    MultiTrieNode<T> _root;
};

template<typename T>
MultiTrieNode<T> const* MultiTrie<T>::find(QString const& key, bool* exact) const
{
    bool isExact = false;
    MultiTrieNode<T> const* const node = _root._find(splitKey(key), &isExact);
    if (exact)
        *exact = isExact;
    return exact || isExact ? node : nullptr;
}

template<typename T>
QStringList MultiTrie<T>::splitKey(QString const& key) const
{
    QStringList parts;
    if (_delimiter.isEmpty())
        for (QChar const character : key)
            parts.append(character);
    else if (!key.isEmpty())
        parts = key.split(_delimiter, Qt::KeepEmptyParts, _caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    if (!_caseSensitive)
        for (QString& part : parts)
            part = part.toLower();
    return parts;
}

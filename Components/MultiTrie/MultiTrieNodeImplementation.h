#pragma once

// The functions of MultiTrieNode, which includes this.

template<typename T>
MultiTrieNode<T>::~MultiTrieNode()
{
    // Each node loses its children before it goes, so that a deep branch does not go through a deep stack.
    std::vector<std::unique_ptr<MultiTrieNode>> doomed;
    auto const take = [&doomed](MultiTrieNode& node) {
        for (auto& [key, child] : node._children)
            doomed.push_back(std::move(child));
        node._children.clear();
    };
    take(*this);
    while (!doomed.empty()) {
        std::unique_ptr<MultiTrieNode> const node = std::move(doomed.back());
        doomed.pop_back();
        take(*node);
    }
}

template<typename T>
void MultiTrieNode<T>::_insert(QStringList const& path, T const& value)
{
    MultiTrieNode* node = this;
    for (QString const& part : path) {
        std::unique_ptr<MultiTrieNode>& child = node->_children[part];
        if (!child)
            child = std::make_unique<MultiTrieNode>(part, node);
        node = child.get();
    }
    node->_values.insert(value);
}

template<typename T>
void MultiTrieNode<T>::_remove(QStringList const& path, T const& value)
{
    MultiTrieNode* node = this;
    for (QString const& part : path) {
        auto const child = node->_children.find(part);
        if (child == node->_children.end())
            return;
        node = child->second.get();
    }
    node->removeValue(value);
    if (node->_values.isEmpty() && node->_children.empty() && node->_parent)
        node->_parent->_removeChild(node->_key);
}

template<typename T>
MultiTrieNode<T> const* MultiTrieNode<T>::_find(QStringList const& path, bool* exact) const
{
    MultiTrieNode const* node = this;
    *exact = false;
    for (QString const& part : path) {
        auto const child = node->_children.find(part);
        if (child == node->_children.end())
            return node;
        node = child->second.get();
    }
    *exact = true;
    return node;
}

template<typename T>
void MultiTrieNode<T>::_removeChild(QString const& key)
{
    MultiTrieNode* node = this;
    QString doomed = key; // The key may be the child's own.
    node->_children.erase(doomed);
    while (node->_children.empty() && node->_values.isEmpty() && node->_parent) {
        doomed = node->_key;
        node = node->_parent;
        node->_children.erase(doomed);
    }
}

template<typename T>
QSet<T> MultiTrieNode<T>::values(bool recursive) const
{
    if (!recursive || _children.empty())
        return _values;
    QSet<T> values;
    visitAll([&values](MultiTrieNode const& node) { values.unite(node._values); });
    return values;
}

template<typename T>
qsizetype MultiTrieNode<T>::count(bool recursive) const
{
    if (!recursive)
        return _values.size();
    qsizetype count = 0;
    visitAll([&count](MultiTrieNode const& node) { count += node._values.size(); });
    return count;
}

template<typename T>
QString MultiTrieNode<T>::toString(int indent) const
{
    QString text;
    std::vector<std::pair<MultiTrieNode const*, int>> waiting{{this, indent}};
    while (!waiting.empty()) {
        auto const [node, column] = waiting.back();
        waiting.pop_back();
        text += node->toLine(column);
        std::vector<MultiTrieNode const*> const children = node->sortedChildren();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            waiting.emplace_back(*child, std::min(column + 2, maximumIndent));
    }
    return text;
}

template<typename T>
void MultiTrieNode<T>::removeValue(T const& value)
{
    _values.remove(value);
    // A set goes over its empty places as well, and would cost for ever what it once held.
    if (_values.capacity() > 1024 && _values.size() < _values.capacity() / 8)
        _values.squeeze();
}

template<typename T>
template<typename Visit>
void MultiTrieNode<T>::visitAll(Visit const& visit) const
{
    std::vector<MultiTrieNode const*> waiting{this};
    while (!waiting.empty()) {
        MultiTrieNode const* const node = waiting.back();
        waiting.pop_back();
        visit(*node);
        for (auto const& [key, child] : node->_children)
            waiting.push_back(child.get());
    }
}

template<typename T>
QString MultiTrieNode<T>::toLine(int indent) const
{
    QStringList values;
    for (T const& value : _values)
        values.append(value.toString());
    values.sort();
    return QString(indent, u' ') + u'"' + _key + u"\": " + values.join(u", ") + u'\n';
}

template<typename T>
std::vector<MultiTrieNode<T> const*> MultiTrieNode<T>::sortedChildren() const
{
    std::vector<MultiTrieNode const*> children;
    for (auto const& [key, child] : _children)
        children.push_back(child.get());
    std::sort(children.begin(), children.end(),
              [](MultiTrieNode const* left, MultiTrieNode const* right) { return left->_key < right->_key; });
    return children;
}

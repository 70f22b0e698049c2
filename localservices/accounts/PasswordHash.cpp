#include "PasswordHash.h"

#include <QPasswordDigestor>
#include <QRandomGenerator>

#include <algorithm>
#include <array>

namespace
{
/// Two ways to type the same letters are one password.
QByteArray derive(QString const& password, QByteArray const& salt, int iterations)
{
    return QPasswordDigestor::deriveKeyPbkdf2(QCryptographicHash::Sha256,
                                              password.normalized(QString::NormalizationForm_C).toUtf8(), salt,
                                              iterations, PasswordHash::hashBytes);
}
} // namespace

PasswordHash PasswordHash::make(QString const& password, int iterations)
{
    std::array<quint32, saltBytes / sizeof(quint32)> words{};
    QRandomGenerator::system()->fillRange(words.data(), words.size());
    QByteArray const salt(reinterpret_cast<char const*>(words.data()), saltBytes);
    return {salt, derive(password, salt, iterations), iterations};
}

bool PasswordHash::matches(QString const& password) const
{
    QByteArray const other = derive(password, salt.isEmpty() ? QByteArray(saltBytes, 'x') : salt,
                                    iterations > 0 ? iterations : usualIterations);
    unsigned difference = hash.size() == other.size() ? 0 : 1;
    for (qsizetype i = 0; i < std::min(hash.size(), other.size()); ++i)
        difference |= static_cast<unsigned char>(hash.at(i)) ^ static_cast<unsigned char>(other.at(i));
    return difference == 0;
}

#pragma once

#include "ConnectionTest.h"
#include "PreferencesPage.h"

class QPushButton;

/// The proxy, a test of the connection, and the cache of the web.
class NetworkPage : public PreferencesPage
{
    Q_OBJECT

public:
    explicit NetworkPage(AppData& appData);

private:
    void addProxy();
    void addTest();
    void addCache();
    void enableProxy();
    void toggleTest();
    void onTested(bool isReachable, QString const& words);
    void onCleared(qint64 bytesLeft);

    ConnectionTest _test;
    QList<QWidget*> _proxyWidgets;
    QPushButton* _testButton = nullptr;
    QLabel* _testResult = nullptr;
    QPushButton* _clear = nullptr;
    QLabel* _clearResult = nullptr;
};

#pragma once

#include <QString>

/// The client's static configuration: texts by category and key. One object per process.
class CDataBase {
public:
    /// Returns the configuration, which lives as long as the process. The caller must not delete it.
    static CDataBase* GetInstance();

    /// Returns the text of a key in a category; `defaultValue` if there is none.
    QString GetStaticCfgValue(const QString& category, const QString& key, const QString& defaultValue = QString());

private:
    CDataBase() = default;
};

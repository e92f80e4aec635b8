#pragma once

#include <QString>

/// The client's static configuration: texts by category and key. One per process.
class CDataBase {
public:
    /// The configuration; lives as long as the process and stays its own.
    static CDataBase* GetInstance();

    /// The text of a key in a category; `defaultValue` when there is none.
    QString GetStaticCfgValue(const QString& category, const QString& key, const QString& defaultValue = QString());

private:
    CDataBase() = default;
};

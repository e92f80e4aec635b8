#pragma once

#include "AuthorityStore.h"
#include "ConfigurationStore.h"
#include "ImportRow.h"
#include "PlanStore.h"
#include "Security.h"
#include "StrategyDefinition.h"
#include "UserStore.h"

#include <optional>

/// The modes and algorithms of imported plans, by the rules of the form.
class PlanAlgorithms {
public:
    PlanAlgorithms(Database& database, const StoredUser& user);

    /// Refuses a mode that the form would not offer, and an algorithm or parameters that it would not take. Adds to the
    /// parameters what the form adds. A plan that has been stored with the same ones keeps them.
    Status complete(ImportRow& row, const Security& security, const PlanStore::Record& before, PlanStore::Record& plan);

private:
    using Fields = QMap<QString, QVariant>;

    Status checkMode(ImportRow& row, const PlanStore::Record& plan, const Fields& other);
    Status checkOffer(ImportRow& row, const Security& security, const PlanStore::Record& plan, const Fields& other);
    static void takeParameters(ImportRow& row, const Fields& order, Fields& other);
    Result<Fields> orderOf(const PlanStore::Record& plan, const Fields& other);
    Result<QString> orderProperty(const QString& entrustCode);

    AuthorityStore m_authorities;
    StrategyStore m_lists;
    StaticTextStore m_texts;
    std::optional<QHash<QPair<QString, QString>, QString>> m_knownTexts;
    const QString m_user;
};

#pragma once

#include "LoggedTest.h"
#include "SampleSession.h"

#include <QtTest>

#include <memory>

/// A test of the real client, on a new sample database for each test function.
class SessionTest : public LoggedTest {
protected:
    SampleSession& session() const { return *m_session; }

    void prepare() override
    {
        m_session = std::make_unique<SampleSession>();
        QCOMPARE(m_session->opened(), Status());
    }

    void tidyUp() override { m_session.reset(); }

private:
    std::unique_ptr<SampleSession> m_session;
};

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Each allocation of each call fails once: the script gets an error or a result, and goes on.
#include "FailingMemory.h"
#include "WillingHost.h"

using failing_memory::Kind;

namespace {

class HostileMemory : public WillingHost {
protected:
    /// Lets the first, the second, ... allocation of each call of the tour fail, until a call makes
    /// no more. Counts what happened.
    void expectAllToBeSurvived(Kind kind)
    {
        // The host's own two functions switch the failure on and off, within the script.
        ON_CALL(environment, workingDirectory()).WillByDefault([this, kind] {
            failing_memory::arm(kind, successes++);
            return QString();
        });
        ON_CALL(delegate, tileViews()).WillByDefault([this] {
            hasFailed = failing_memory::disarm();
            failures += hasFailed ? 1 : 0;
        });
        ON_CALL(delegate, activateView).WillByDefault([this](int) { successes = 0; });
        ON_CALL(delegate, duplicateView).WillByDefault([this](int) { return hasFailed; });
        // Qt's documents, which hold a chain element's settings, and its menus do not survive it.
        const char* const left =
            kind == Kind::Cpp ? "del calls['add_chain_object'], calls['add_menu_item']\n" : "";
        // From 3.13 on Python tells of failures that its own functions swallow.
        const QString told = run((std::string(tourScript) + left + everyFailure).c_str());
        EXPECT_TRUE(output.endsWith(QLatin1String("end\n"))) << qPrintable(told);
        std::cout << failures
                  << " failures; calls that made none: " << output.trimmed().toStdString() << '\n';
        EXPECT_GT(failures, 100);
        EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
    }

    static constexpr char everyFailure[] = R"py(
for name in ('get_working_directory', 'tile_views', 'activate_view', 'duplicate_view'): del calls[name]
arm, disarm, restart, has_failed = (vistrel.get_working_directory, vistrel.tile_views,
                                    vistrel.activate_view, vistrel.duplicate_view)
for name, call in calls.items():
    restart()
    for count in range(2000):
        try:
            arm()
            call()
        except (Exception, SystemError): pass
        try: disarm()
        except Exception: disarm() # it was the switch itself that failed
        if has_failed() < 0: break
    else:
        raise AssertionError(f'{name} has no end')
    if count == 0: print(name, end=' ')
print('end')
)py";

    int successes = 0;
    int failures = 0;
    bool hasFailed = false;
};

TEST_F(HostileMemory, OfCppIsSurvivedAtEachAllocation) { expectAllToBeSurvived(Kind::Cpp); }

TEST_F(HostileMemory, OfPythonIsSurvivedAtEachAllocation) { expectAllToBeSurvived(Kind::Python); }

class HostileRunMemory : public PluginTest {
protected:
    /// Each allocation of a whole run fails in turn.
    void expectRunsToBeSurvived(Kind kind)
    {
        run(script);
        int survived = 0;
        for (bool fails = true; fails && survived < 20'000; ++survived) {
            failing_memory::arm(kind, survived);
            run(script);
            fails = failing_memory::disarm();
        }
        std::cout << survived << " runs\n";
        EXPECT_GT(survived, 10);
        EXPECT_LT(survived, 20'000);
        EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
    }

    static constexpr char script[] = "import vistrel\n"
                                     "image = vistrel.Image()\n"
                                     "image.alloc(4, 3, 1, 8)\n"
                                     "print('text', image)\n"
                                     "def work(): return image.get_width()\n"
                                     "work()\n"
                                     "1 / 0\n";
};

TEST_F(HostileRunMemory, OfCppIsSurvivedAtEachAllocation) { expectRunsToBeSurvived(Kind::Cpp); }

} // namespace

#include "EffectsLibrary.h"

#include "AppData.h"
#include "CompilerMessages.h"
#include "EffectNames.h"
#include "EffectTrial.h"
#include "EffectsMenu.h"
#include "EventLoop.h"
#include "GlslHighlighter.h"
#include "SettingsFile.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace
{

constexpr char const* source = "void main() { gl_FragColor = vec4(1.0); }\n";

class EffectsLibraryTest : public testing::Test
{
protected:
    QString path(QString const& file = {}) const { return _directory.filePath("Effects/" + file); }

    void write(QString const& file, QByteArray const& bytes) const
    {
        QDir().mkpath(path());
        QFile target(path(file));
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        target.write(bytes);
    }

    std::unique_ptr<EffectsLibrary> loaded()
    {
        auto library = std::make_unique<EffectsLibrary>(path());
        QObject::connect(library.get(), &EffectsLibrary::failed, library.get(),
                         [this](QString const& words) { _problems += words; });
        library->load();
        EXPECT_TRUE(processEventsUntil([&library] { return library->isLoaded(); }));
        return library;
    }

    static QStringList names(EffectsLibrary const& library)
    {
        QStringList names;
        for (Effect const& effect : library.effects())
            names.append(effect.name + (effect.isOn ? "+" : ""));
        return names;
    }

    QTemporaryDir _directory;
    QString _problems;
};

} // namespace

TEST_F(EffectsLibraryTest, WhatTheViewerMadeIsThereAgainInItsOrder)
{
    QString const strange = QString::fromUtf8("../../äöü/%2F <b> \u00e9");
    {
        auto library = loaded();
        EXPECT_EQ(library->add("Mine", source, "Sharpen"), QString());
        EXPECT_EQ(library->add(strange, source), QString());
        EXPECT_EQ(library->rename("Mine", "Ours"), QString());
        library->setOn("Ours", true);
        library->setOn("Scan Lines", true);
        library->setEnabled(true);
        library->move(0, 1);
        library->setPassed("Ours", "mark", 1234.0);
        library->beginTrying({"Ours"}, {});
        library->endTrying();
    }
    auto library = loaded();
    EXPECT_EQ(names(*library), (QStringList{"Ours+", "Sharpen", "Black and White", "Film Grain", "Scan Lines+",
                                            EffectNames::tidied(strange)}));
    EXPECT_TRUE(library->isEnabled());
    EXPECT_EQ(library->find("Ours")->passed, "mark");
    EXPECT_EQ(library->find("Ours")->cost, 1234.0);
    EXPECT_EQ(QDir(_directory.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("Effects"));
    EXPECT_EQ(QDir(path()).entryList({"*.frag"}).size(), 2);

    EXPECT_EQ(library->setSource("Ours", "other"), QString());
    EXPECT_TRUE(library->find("Ours")->passed.isEmpty()) << "what has passed was another one";
    EXPECT_EQ(library->remove("Ours"), QString());
    for (QString const& refused :
         {library->add("sharpen", source), library->add(" \n\u202e ", source), library->add(QString(81, 'x'), source),
          library->remove("Sharpen"), library->setSource("Sharpen", "x"), library->rename("Sharpen", "Blunt"),
          library->rename(EffectNames::tidied(strange), "Sharpen"), library->add("Long", QString(300000, 'x'))})
        EXPECT_FALSE(refused.isEmpty());
    EXPECT_EQ(library->freeName("Sharpen"), "Sharpen 2");
    EXPECT_TRUE(_problems.isEmpty()) << qPrintable(_problems);
}

TEST_F(EffectsLibraryTest, TheMenuShowsThemWithTheFirstAndNoMoreWithoutTheLast)
{
    settingsFile().clear();
    AppData appData;
    appData.initialize(nullptr);
    {
        EffectsLibrary early(path());
        early.setOn("Sharpen", true);
        early.move(0, 1);
        EXPECT_EQ(names(early).constFirst(), "Sharpen") << "what is on the disk is not known yet";
        auto const library = loaded();
        QMenu menu;
        EffectsMenu const effects(*library, appData.settings, &menu);
        auto const isShownAfter = [&](QString const& chosen) {
            for (QAction* const action : menu.actions())
                if (action->text() == chosen) {
                    action->trigger();
                    break;
                }
            return appData.settings.enableVideoPostProcessing();
        };
        EXPECT_TRUE(isShownAfter("Sharpen"));
        EXPECT_TRUE(isShownAfter("Film Grain"));
        appData.settings.setEnableVideoPostProcessing(false);
        EXPECT_FALSE(isShownAfter("Sharpen")) << "the other one is not wanted now";
        EXPECT_FALSE(isShownAfter("Film Grain"));
        EXPECT_TRUE(isShownAfter("Film Grain"));
        EXPECT_FALSE(isShownAfter("Film Grain"));
    }
    appData.uninitialize();
}

TEST_F(EffectsLibraryTest, DamagedFilesAreLeftOutInWords)
{
    write("Good.frag", source);
    write("Not%20text.frag", "\xff\xfe");
    write("Too%20long.frag", QByteArray(EffectsStore::maximumSource + 1, 'x'));
    write("..%2Fout.frag", source); // Not as the program writes it.
    write("Sharpen.frag", "a template's name");
    QFile::link("/etc/passwd", path("Link.frag"));
    for (QByteArray const index : {"", "{", "[]", "{\"effects\":7}", "{\"effects\":[7,{\"name\":\"Nobody\"}]}"}) {
        write("effects.json", index);
        _problems.clear();
        EXPECT_EQ(names(*loaded()), (QStringList{"Sharpen", "Black and White", "Film Grain", "Scan Lines", "Good"}));
        EXPECT_EQ(_problems.count("can't be read") + _problems.count("is not named"),
                  index.contains('[') && index.size() > 2 ? 5 : 6)
            << index.constData() << qPrintable(_problems);
    }
}

TEST_F(EffectsLibraryTest, WhatTheProgramDiedOfIsOffAtTheNextStart)
{
    write("Bad.frag", source);
    write("Good.frag", source);
    for (QByteArray const marker : {"[\"Bad\"]", "damaged"}) {
        write("effects.json", R"({"enabled":true,"effects":[{"name":"Bad","on":true,"passed":"x"},)"
                              R"({"name":"Good","on":true}]})");
        write("trying.json", marker);
        {
            auto library = loaded();
            EXPECT_FALSE(library->find("Bad")->isOn);
            EXPECT_FALSE(library->find("Bad")->fault.isEmpty());
            EXPECT_TRUE(library->find("Bad")->passed.isEmpty());
            EXPECT_EQ(library->find("Good")->isOn, marker != "damaged") << "the marker may have meant any";
            EXPECT_TRUE(_problems.contains("\"Bad\""));
        }
        EXPECT_FALSE(QFile::exists(path("trying.json")));
        EXPECT_FALSE(loaded()->find("Bad")->isOn) << "it is kept";
    }
}

TEST_F(EffectsLibraryTest, ATrialEndsWhateverTheOtherProcessDoes)
{
    struct Case {
        char const* script;
        EffectTrialResult::Verdict verdict;
    };
    using Verdict = EffectTrialResult::Verdict;
    Case const cases[] = {
        {"cat >/dev/null; echo '{\"compiled\":true,\"log\":\"\",\"microsecondsPerMegapixel\":20000}'",
         Verdict::Passed},
        {"echo '{\"compiled\":true,\"microsecondsPerMegapixel\":2000000}'", Verdict::TooSlow},
        {"echo '{\"compiled\":true,\"microsecondsPerMegapixel\":1,\"compileMilliseconds\":4000}'",
         Verdict::SlowToCompile},
        {"echo '{\"compiled\":false,\"log\":\"0:3(1): error: no\"}'", Verdict::Refused},
        {"kill -SEGV $$", Verdict::Died},
        {"echo nonsense", Verdict::NotPossible},
        {nullptr, Verdict::NotPossible},
    };
    for (Case const& c : cases) {
        QString const program = _directory.filePath("trial");
        QFile::remove(program);
        if (c.script) {
            QFile file(program);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(QByteArray("#!/bin/sh\n") + c.script + "\n");
            file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        }
        EffectTrial trial(program);
        std::optional<EffectTrialResult> result;
        QObject::connect(&trial, &EffectTrial::finished, &trial,
                         [&result](EffectTrialResult const& r) { result = r; });
        trial.start(source, {1280, 720});
        ASSERT_TRUE(processEventsUntil([&result] { return result.has_value(); }));
        EXPECT_EQ(result->verdict, c.verdict) << (c.script ? c.script : "none");
        EXPECT_EQ(EffectTrial::words(*result).isEmpty(), c.verdict == Verdict::Passed);
        EXPECT_FALSE(trial.isRunning());
    }
}

TEST_F(EffectsLibraryTest, MessagesOfCompilersAreFoundAtTheirLines)
{
    QList<CompilerMessage> const found =
        compilerMessages("0:3(12): error: `x' undeclared\n0(7) : warning C7011: implicit cast\n"
                         "ERROR: 0:12: '}' : syntax error\nsomething else\n\n");
    QList<CompilerMessage> const expected = {{3, "error: `x' undeclared", false},
                                             {7, "warning C7011: implicit cast", true},
                                             {12, "'}' : syntax error", false},
                                             {0, "something else", false}};
    EXPECT_EQ(found, expected);
}

TEST_F(EffectsLibraryTest, CommentsOverSeveralLinesAreColoured)
{
    QTextDocument document("a /* b\n\nc // d\n*/ float /**/ /* // */ 1 // e /*\n2");
    GlslHighlighter highlighter(&document);
    highlighter.rehighlight();
    QStringList italics;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        for (QTextLayout::FormatRange const& range : block.layout()->formats())
            if (range.format.fontItalic())
                italics.append(block.text().mid(range.start, range.length));
    EXPECT_EQ(italics, (QStringList{"/* b", "c // d", "*/", "/**/", "/* // */", "// e /*"}));
}

#include "startup/startup_sequence.h"
#include "store_tree.h"

#include <regex>

/// Each row: what is on the disk; the lines printed, as patterns, which may leave out an errno text
/// that no failed call has set; what the run changes of all that is below /var/db.
static void expect_runs(const std::string& table) {
    std::istringstream rows(table + "\n");
    for (std::string before, prints, after; getline(rows >> std::ws, before, ';') &&
                                            getline(rows, prints, ';') && getline(rows, after);) {
        SCOPED_TRACE(before);
        arrange_afresh(before + " | " + after);
        const auto expected = stored();
        arrange_afresh(before);
        const auto printed = printed_by(run_startup_sequence);
        std::istringstream lines(filled_in(prints));
        std::string pattern;
        for (std::string line; getline(lines >> std::ws, line, '|');)
            pattern += "tzpublish: " + line.substr(0, line.find_last_not_of(' ') + 1) + "(: .+)?\n";
        EXPECT_TRUE(std::regex_match(printed, std::regex(pattern))) << printed << pattern;
        EXPECT_EQ(stored(), expected);
    }
}

TEST(WholeRun, DecidesAndGoesOnIfTheLastResortFails) {
    expect_runs(R"(
        SYSTEM ;;
        UPDATE-B ;;
        zoneinfo -> @2016b.1.0/other ;;
        zoneinfo | localtime ; Bad zoneinfo link : No such file or directory | INVALID | NO-ZONE ; SYSTEM | FALLBACK
        zoneinfo -> @2016b.1.0 ; Bad zoneinfo link @2016b.1.0 | INVALID ; SYSTEM
        zoneinfo -> @/zoneinfo ; Bad zoneinfo link @/zoneinfo | INVALID ; SYSTEM
        zoneinfo -> TREE/ ; Bad zoneinfo link TREE/ | INVALID ; SYSTEM
        zoneinfo -> @x/zoneinfo ; Cannot parse version string x, .*0 | Cannot parse version string x | UNUSABLE ; SYSTEM | needs_cleanup =
        zoneinfo -> @2147483648a/zoneinfo ; NO-DATA ; SYSTEM
        zoneinfo -> @2016d.1.0/zoneinfo ; UNUSABLE ; SYSTEM | needs_cleanup =

        tz_latest -> @2016b.1.0 ;; UPDATE-B | TZVersionDiffRecord = 2016a.1.0_2016b.1.0
        tz_latest -> @2016b.1.0 | zoneinfo ; Bad zoneinfo link .* | INVALID ; UPDATE-B | TZVersionDiffRecord = 2016a.1.0_2016b.1.0
        tz_latest -> @2016c.1.0 | UPDATE-B | TZVersionDiffRecord = of_an_earlier_adoption ;; UPDATE-C | needs_cleanup = | TZVersionDiffRecord = 2016b.1.0_2016c.1.0
        tz_latest -> @2016b.1.0 | UPDATE-B | TZVersionDiffRecord = kept | needs_cleanup = | /var/db/icu = ; NOT-NEWER ; needs_cleanup | /var/db/icu
        tz_latest -> @2016b.1.0 | UPDATE-C ; NOT-NEWER ;
        tz_latest -> @2016d.1.0 | UPDATE-B ; NOT-NEWER ;
        tz_latest -> @2016c.1.0/ ; Cannot parse version string 2016c.1.0/, .*0 | Cannot parse version string 2016c.1.0/ | NOT-NEWER ;
        tz_latest -> @2016c.1.2147483648 | UPDATE-B ; NO-DATA ; SYSTEM
        tz_latest = x | UPDATE-B ; read_symlink: ~/tz_latest: Invalid argument | NO-DATA ; SYSTEM
        tz_latest -> ~/TZ/2016c | UPDATE-B ; orv_dataset::create_components: bad path ~/TZ/2016c | NO-DATA ; SYSTEM
        tz_latest -> @ | UPDATE-B ; orv_dataset::create_components: bad path @ | NO-DATA ; SYSTEM
        tz_latest -> @2016b.1.0 | UPDATE-B | TREE/+VERSION = 2016c ; UNUSABLE | NOT-NEWER ; SYSTEM | needs_cleanup =
        tz_latest -> @2016c.1.0 | UPDATE-B | TREE/+VERSION = 2016z ; UNUSABLE ; UPDATE-C | needs_cleanup = | TZVersionDiffRecord = 2016z.1.0_2016c.1.0
        tz_latest -> @2016b.1.0 | TREE/+VERSION ; (Cannot parse version string .1.0.*\n.*){3}Cannot parse version string .1.0 ; UPDATE-B | TZVersionDiffRecord = .1.0_2016b.1.0
        tz_latest -> @2016b.1.0 | TZVersionDiffRecord / ;; UPDATE-B

        zoneinfo / | localtime ; read_symlink: ~/zoneinfo: Invalid argument | INVALID | remove: could not remove ~/zoneinfo: Is a directory |
            Unlink of zoneinfo softlink failed: Is a directory | create_symlink: from ~/zoneinfo to TREE: File exists | NO-DATA | remove: .* |
            Unlink .* | create_symlink: .* | NO-ZONE ; FALLBACK
        tz_latest -> @2016b.1.0 | /var/db/icutz / ; remove: could not remove /var/db/icutz: Is a directory |
            unlink of ICU softlink failed: Is a directory | create_symlink: from /var/db/icutz to @2016b.1.0/icutz: File exists | NO-DATA |
            remove: .* | unlink of .* ;
        ~ ; Bad zoneinfo link .* | INVALID | create_symlink: .*/zoneinfo to .* | NO-DATA | create_symlink: .* | NO-ZONE |
            create_symlink: from ~/localtime to ~/zoneinfo/America/Los_Angeles: No such file or directory ;
        UPDATE-B | TREE/+VERSION = 99999999999999999999a ; NO-DATA: Numerical result out of range ;
        zoneinfo -> @2016d.1.0/zoneinfo | needs_cleanup/x = ; UNUSABLE | Cannot touch file ~/needs_cleanup: Is a directory ; SYSTEM
    )");
    expect_runs("zoneinfo -> /" + std::string(1500, 'y') +
                "; Bad zoneinfo link /y{1023} | INVALID ; SYSTEM");
}

TEST(WholeRun, TakesTheFormatFromTheNameOfADataFile) {
    const std::string update = "tz_latest -> @2016b.1.0 | @2016b.1.0/icutz | @2016b.1.0/icutz";
    for (const char* files : {"/icutz44l.dat = | @2016b.1.0/icutz/a/icutz9l.dat = ",
                              "/icutz7e.dat = | /usr/share/icu/icutzformat.txt = 7e x",
                              " -> /var/db/data | /var/db/data/icutz44l.dat ="})
        expect_runs(update + files + ";; UPDATE-B | TZVersionDiffRecord = 2016a.1.0_2016b.1.0");
    for (const char* files :
         {"", "/a/icutz44l.dat =", "/icutz44l.dat /",
          "/icutz44l.dat -> /usr/share/icu/icutzformat.txt",
          "/icutz44x.dat = | /usr/share/icu/icutzformat.txt = 44x",
          "/icutz44L.dat =", "/icutzl.dat = | /usr/share/icu/icutzformat.txt = l",
          "/icutz44l_dat =", "/xicutz44l.dat =", "/icutz44l.dat.bak ="})
        expect_runs(update + files + "; NOT-NEWER ;");
    arrange_afresh("tz_latest -> @2016b.1.0");
    fs::permissions("/var/db/timezone/tz/2016b.1.0/icutz/icutz44l.dat", fs::perms::owner_all);
    EXPECT_TRUE(printed_by(run_startup_sequence).starts_with("tzpublish: New update not"));
}

TEST(WholeRun, RepairsTheLocalTimeLink) {
    expect_runs(R"(
        localtime = x ; read_symlink: ~/localtime: Invalid argument | NO-ZONE ; FALLBACK
        localtime | localtime/x = ; read_symlink: .* | NO-ZONE | create_symlink: from ~/localtime to ~/zoneinfo/America/Los_Angeles: File exists ;
        localtime -> Europe/Paris ; NO-ZONE ; FALLBACK
        localtime -> ~/zoneinfo.none ;;
        localtime -> /usr/share/zoneinfo/Europe/Paris ; Correcting localtime link to ~/zoneinfo/Europe/Paris ; localtime -> ~/zoneinfo/Europe/Paris
        localtime -> /usr/share/zoneinfo/Europe/Rome ; Correcting localtime link to ~/zoneinfo/Europe/Rome | NO-ZONE ; FALLBACK
    )");
}

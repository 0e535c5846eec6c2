#include "Support.h"

namespace quillon::practice {
namespace {

TEST(Format, NumbersInStandardFormats) {
    ExpectAll({
        {"FORMAT", {"123.456", "'C'"}, "$123.46"},
        {"FORMAT", {"-123.456", "'C3'"}, "($123.456)"},
        {"FORMAT",
         {"-123.456", "'C'", "'en-gb'"},
         "-\xC2\xA3"
         "123.46"},
        {"FORMAT", {"1", "'C'", "'de-de'"}, "1,00 \xE2\x82\xAC"},
        {"FORMAT",
         {"1", "'C'", "''"},
         "\xC2\xA4"
         "1.00"},
        {"FORMAT", {"1234", "'D'"}, "1234"},
        {"FORMAT", {"-1234", "'d6'"}, "-001234"},
        {"FORMAT", {"1052.0329112756e0", "'E'"}, "1.052033E+003"},
        {"FORMAT", {"-1052.0329112756e0", "'e2'"}, "-1.05e+003"},
        {"FORMAT", {"1234.567", "'F'"}, "1234.57"},
        {"FORMAT", {"1234", "'F1'", "'de-DE'"}, "1234,0"},
        {"FORMAT", {"-1234.56", "'F4'"}, "-1234.5600"},
        {"FORMAT", {"-123.456", "'G'"}, "-123.456"},
        {"FORMAT", {"123.4546", "'G4'"}, "123.5"},
        {"FORMAT", {"-1.234567890e-25", "'G'"}, "-1.23456789E-25"},
        {"FORMAT", {"1.0000", "'G'", "'de-de'"}, "1,0000"},
        {"FORMAT", {"0.00012e0", "'G'"}, "0.00012"},
        {"FORMAT", {"1234.567", "'N'"}, "1,234.57"},
        {"FORMAT", {"1234567", "'n1'", "'de-de'"}, "1.234.567,0"},
        {"FORMAT", {"-1234.56", "'N3'"}, "-1,234.560"},
        {"FORMAT", {"-0.001", "'N2'"}, "0.00"},
        {"FORMAT", {"1", "'P'"}, "100.00 %"},
        {"FORMAT", {"-0.39678", "'P1'"}, "-39.7 %"},
        {"FORMAT", {"123456789.12345678e0", "'R'"}, "123456789.12345678"},
        {"FORMAT", {"255", "'X'"}, "FF"},
        {"FORMAT", {"-1", "'x'"}, "ffffffff"},
        {"FORMAT", {"255", "'x4'"}, "00ff"},
        {"FORMAT", {"1.5", "'D'"}, "NULL"},
        {"FORMAT", {"1.5", "'X'"}, "NULL"},
        {"FORMAT", {"1", "'R'"}, "NULL"},
        {"FORMAT", {"1", "'Q'"}, "NULL"},
    });
}

TEST(Format, NumbersInCustomFormats) {
    ExpectAll({
        {"FORMAT", {"123456789", "'###-##-####'"}, "123-45-6789"},
        {"FORMAT", {"1234.5678", "'00000'"}, "01235"},
        {"FORMAT", {"0.45678", "'0.00'", "'en-US'"}, "0.46"},
        {"FORMAT", {"0.45678", "'#.##'"}, ".46"},
        {"FORMAT", {"0", "'#,##'"}, ""},
        {"FORMAT", {"2147483647", "'##,#'"}, "2,147,483,647"},
        {"FORMAT", {"2147483647", "'#,#,,'"}, "2,147"},
        {"FORMAT", {"0.3697", "'%#0.00'"}, "%36.97"},
        {"FORMAT", {"0.03697", "N'#0.00\xE2\x80\xB0'"}, "36.97\xE2\x80\xB0"},
        {"FORMAT", {"987654", "'#0.0e0'"}, "98.8e4"},
        {"FORMAT", {"1503.92311e0", "'0.0##e+00'"}, "1.504e+03"},
        {"FORMAT", {"86000", "'0.###E-000'"}, "8.6E004"},
        {"FORMAT", {"12.345", "'#0.0#;(#0.0#);-\\0-'"}, "12.35"},
        {"FORMAT", {"0", "'#0.0#;(#0.0#);-\\0-'"}, "-0-"},
        {"FORMAT", {"-12.345", "'#0.0#;(#0.0#);-\\0-'"}, "(12.35)"},
        {"FORMAT", {"-0.001", "'0.0;(0.0);zero'"}, "zero"},
        {"FORMAT", {"-5", "'0;'"}, "-5"},
        {"FORMAT", {"987654", "'\\###00\\#'"}, "#987654#"},
        {"FORMAT", {"68", "'# ''x'' \"#\"'"}, "68 x #"},
        {"FORMAT", {"1234567.5", "'#,##0.00'", "'de-DE'"}, "1.234.567,50"},
        {"FORMAT", {"1.2", "'(###) ###-####'"}, "() -1"},
    });
}

TEST(Format, Dates) {
    const std::string day = "t'2009-06-15T13:45:30.6175425'";
    ExpectAll({
        {"FORMAT", {day, "'d'"}, "6/15/2009"},
        {"FORMAT", {day, "'d'", "''"}, "06/15/2009"},
        {"FORMAT", {day, "'d'", "'de-de'"}, "15.06.2009"},
        {"FORMAT", {day, "'D'"}, "Monday, June 15, 2009"},
        {"FORMAT", {day, "'D'", "'de-DE'"}, "Montag, 15. Juni 2009"},
        {"FORMAT", {day, "'D'", "'en-GB'"}, "15 June 2009"},
        {"FORMAT", {day, "'f'"}, "Monday, June 15, 2009 1:45 PM"},
        {"FORMAT", {day, "'F'"}, "Monday, June 15, 2009 1:45:30 PM"},
        {"FORMAT", {day, "'g'"}, "6/15/2009 1:45 PM"},
        {"FORMAT", {day, "''"}, "6/15/2009 1:45:30 PM"},
        {"FORMAT", {day, "'m'"}, "June 15"},
        {"FORMAT", {day, "'O'", "'de-DE'"}, "2009-06-15T13:45:30.6175425"},
        {"FORMAT", {day, "'R'", "'de-DE'"}, "Mon, 15 Jun 2009 13:45:30 GMT"},
        {"FORMAT", {day, "'s'"}, "2009-06-15T13:45:30"},
        {"FORMAT", {day, "'u'"}, "2009-06-15 13:45:30Z"},
        {"FORMAT", {day, "'U'"}, "Monday, June 15, 2009 12:45:30 PM"},
        {"FORMAT", {day, "'Y'"}, "June 2009"},
        {"FORMAT", {day, "'dd/MM/yyyy'", "'de-DE'"}, "15.06.2009"},
        {"FORMAT", {day, "'ddd dddd MMM MMMM'"}, "Mon Monday Jun June"},
        {"FORMAT", {day, "'d M y yy yyyyy'"}, "15 6 9 09 02009"},
        {"FORMAT", {day, "'h hh H HH:m:s tt t'"}, "1 01 13 13:45:30 PM P"},
        {"FORMAT", {day, "'f fff fffffff'"}, "6 617 6175425"},
        {"FORMAT", {"t'2009-06-15T13:45:30'", "'ss.FFF'"}, "30"},
        {"FORMAT", {"t'2009-06-15T13:45:30.05'", "'ss.FFF'"}, "30.05"},
        {"FORMAT", {day, "'%h'"}, "1"},
        {"FORMAT", {day, "'z zz zzz K'"}, "+1 +01 +01:00 "},
        {"FORMAT", {day, "'h \\h m \\m'"}, "1 h 45 m"},
        {"FORMAT", {day, "'yyyy gg'"}, "2009 A.D."},
        {"FORMAT", {day, "'q'"}, "NULL"},
        {"FORMAT", {day, "'ffffffff'"}, "NULL"},
        {"FORMAT", {day, "'yyyy \"open'"}, "NULL"},
    });
}

TEST(Format, RefusesWhatItDoesNotTake) {
    ExpectAll({
        {"FORMAT", {"1", "'N'", "'nowhere'"}, "error 9818"},
        {"FORMAT", {"1", "'N'", "'fr-FR'"}, "error 49999"},
        {"FORMAT", {"'1'", "'N'"}, "error 8116"},
        {"FORMAT", {"0x01", "'N'"}, "error 8116"},
        {"FORMAT", {"1", "2"}, "error 8116"},
        {"FORMAT", {"NULL", "'N'"}, "error 8116"},
    });
}

} // namespace
} // namespace quillon::practice

' Date constants.
Say vbSunday & vbMonday & vbTuesday & vbWednesday & vbThursday & vbFriday & vbSaturday '= 1234567
Say vbUseSystem & vbUseSystemDayOfWeek '= 00
Say vbFirstJan1 & vbFirstFourDays & vbFirstFullWeek '= 123
Say vbGeneralDate & vbLongDate & vbShortDate & vbLongTime & vbShortTime '= 01234

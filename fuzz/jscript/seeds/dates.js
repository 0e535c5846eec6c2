var d = new Date('1/5/2004 5:06 PM'), result = d.getHours() + d.toLocaleString() + new Date(0).toUTCString();
result += Date.parse('Mon, 25 Dec 1995 13:30:00 GMT+0430') + Date.UTC(2004, 1, 29) + d.getYear();
library.Kept = d; library.Kept.getVarDate(); library.Echo(new Date(NaN)); d.setMonth(14, 40);
function main() { return Echo(new Date(2004, 0, 5, 16, 7, 8)).toTimeString() + Date() + (d - new Date(99, 1)); }

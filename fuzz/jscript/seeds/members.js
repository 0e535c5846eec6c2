library.Of('a') = 1; library.Of('a') += 2; library('b') |= 4; library.Of(1)++;
var shelf = library.Items, n = 0;
for (var e = new Enumerator(shelf); !e.atEnd(); e.moveNext()) { e.item().Kept = n++; }
var grid = new VBArray(library.Grid);
var result = grid.toArray().join() + grid.getItem(1, 0) + grid.ubound(1) + typeof library.Make + typeof library.Nothing;
Kept = 5; Echo(Kept);
with (library) { Kept = Echo(7); }
function main() { try { library.Fail(); } catch (e) { return e.number + e.description; } }
'Kept' in library; for (var k in library) n++; String(library); library == library.Items; delete library.Kept;

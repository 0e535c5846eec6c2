var made = new Function('a', 'b', 'return a + b'), x = 1;
var result = made(1, 2) + eval('x + 1; library.Kept') + (function () { return arguments.length + arguments.callee.length; })(1, 2);
function main(a) { return a ? a : typeof eval('(function () { "use strict"; return this; })()'); }
var o = { get: 1, 'set': 2, 3: [4, , 5], f: function f() { return f === o.f; } };
result += parseInt('010') + parseInt('0x1F') + parseFloat('1.5e3') + escape('\u0101 b') + unescape('%u0101%20');
a = [3, 1, 2].sort(function (l, r) { return r - l; }).concat(o[3]).slice(1, -1).reverse(); a.length = 2;
made.apply(null, a); made.call(o); x = a ? b = 1 : /a/.test('a') / 2;

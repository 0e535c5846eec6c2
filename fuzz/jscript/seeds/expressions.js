var r = /([a-z])(\d)/g, text = 'a1b2', result = '';
result += text.replace(r, '$2$1') + RegExp.$1 + RegExp.lastMatch + RegExp.rightContext + RegExp.index;
while ((m = r.exec(text)) !== null) { result += m.index + m.lastIndex; }
r.compile('B+|(c)', 'i'); r.test('abbc'); text.search(/y/); text.match(/\d/g).join('-'); text.split(/b/);
function main() { return /^(a+)+$/.test(new Array(20).join('a') + 'b') ? RegExp.leftContext : RegExp['$_']; }
text.replace(/./g, function (c, at) { return c.charCodeAt(0).toString(16) + at; });

// The methods of texts that wrap them in tags.
(function (global, native) {
    var tags = { big: 'BIG', blink: 'BLINK', bold: 'B', fixed: 'TT', italics: 'I', small: 'SMALL', strike: 'STRIKE',
                 sub: 'SUB', sup: 'SUP' };
    var attributes = { anchor: ['A', 'NAME'], fontcolor: ['FONT', 'COLOR'], fontsize: ['FONT', 'SIZE'],
                       link: ['A', 'HREF'] };
    Object.keys(tags).forEach(function (name) {
        var tag = tags[name];
        native.hide(String.prototype, name, function () { return '<' + tag + '>' + this + '</' + tag + '>'; });
    });
    Object.keys(attributes).forEach(function (name) {
        var tag = attributes[name][0], attribute = attributes[name][1];
        native.hide(String.prototype, name, function (value) {
            return '<' + tag + ' ' + attribute + '="' + value + '">' + this + '</' + tag + '>';
        });
    });
})

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>tessera::TDataBrowser</name>
    <message>
        <source>Text</source>
        <translation>Текст</translation>
    </message>
    <message>
        <source>Add Column</source>
        <translation>Новый столбец</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Имя:</translation>
    </message>
    <message>
        <source>&amp;Type:</source>
        <translation>&amp;Тип:</translation>
    </message>
    <message>
        <source>&amp;Characters:</source>
        <translation>&amp;Символов:</translation>
    </message>
    <message>
        <source>Attributes</source>
        <translation>Атрибуты</translation>
    </message>
    <message>
        <source>%1 cells keep their values. %2</source>
        <translation>Ячейки с прежними значениями: %1. %2</translation>
    </message>
    <message>
        <source>paste values</source>
        <translation>вставить значения</translation>
    </message>
    <message>
        <source>clear values</source>
        <translation>очистить значения</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Отбор</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Найти</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Копировать</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Вставить</translation>
    </message>
    <message>
        <source>C&amp;lear</source>
        <translation>&amp;Очистить</translation>
    </message>
    <message>
        <source>&amp;Find Next</source>
        <translation>Найти &amp;далее</translation>
    </message>
    <message>
        <source>&amp;Add Column…</source>
        <translation>Д&amp;обавить столбец…</translation>
    </message>
    <message>
        <source>Re&amp;name Column…</source>
        <translation>Пере&amp;именовать столбец…</translation>
    </message>
    <message>
        <source>&amp;Remove Column…</source>
        <translation>&amp;Удалить столбец…</translation>
    </message>
    <message>
        <source>&amp;Export…</source>
        <translation>&amp;Экспорт…</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Не найдено</translation>
    </message>
    <message>
        <source>Rename Column</source>
        <translation>Переименование столбца</translation>
    </message>
    <message>
        <source>New name of the column “%1”:</source>
        <translation>Новое имя столбца «%1»:</translation>
    </message>
    <message>
        <source>Remove Column</source>
        <translation>Удаление столбца</translation>
    </message>
    <message>
        <source>Remove the column “%1” and its values from all objects?</source>
        <translation>Удалить столбец «%1» и его значения у всех объектов?</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Экспорт</translation>
    </message>
    <message>
        <source>Comma-separated values (*.csv)</source>
        <translation>Значения через запятую (*.csv)</translation>
    </message>
</context>
<context>
    <name>tessera::TFormatReport</name>
    <message>
        <source>the character set %1, which cannot be written</source>
        <translation>кодировка %1, в которой нельзя записать</translation>
    </message>
    <message>
        <source>the name of the character set, which the library cannot write</source>
        <translation>имя кодировки, которое библиотека не может записать</translation>
    </message>
    <message>
        <source>widths of Char and Decimal columns</source>
        <translation>ширина столбцов Char и Decimal</translation>
    </message>
    <message>
        <source>values of SmallInt and Date columns</source>
        <translation>значения столбцов SmallInt и Date</translation>
    </message>
    <message>
        <source>types of Logical and Time columns</source>
        <translation>типы столбцов Logical и Time</translation>
    </message>
    <message>
        <source>the layer was deleted while it was being loaded</source>
        <translation>слой был удалён во время загрузки</translation>
    </message>
    <message>
        <source>an object was deleted while it was being loaded</source>
        <translation>объект был удалён во время загрузки</translation>
    </message>
    <message>
        <source>%1 columns are too many</source>
        <translation>столбцов слишком много: %1</translation>
    </message>
    <message>
        <source>the file ends within a Region</source>
        <translation>файл кончается внутри Region</translation>
    </message>
    <message>
        <source>the file ends within a Pline</source>
        <translation>файл кончается внутри Pline</translation>
    </message>
    <message>
        <source>only the first section of a Pline Multiple is read as it is meant</source>
        <translation>только первая часть Pline Multiple читается так, как задумано</translation>
    </message>
    <message>
        <source>there are too many parts without points</source>
        <translation>слишком много частей без точек</translation>
    </message>
    <message>
        <source>%1 points are announced, but the file ends after %2</source>
        <translation>объявлено точек: %1, но файл кончается после %2</translation>
    </message>
    <message>
        <source>shapes that are not read as they stand</source>
        <translation>фигуры, прочитанные не так, как записаны</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>строка %1: %2</translation>
    </message>
    <message>
        <source>there is no data file, so the objects have no values</source>
        <translation>файла данных нет, поэтому у объектов нет значений</translation>
    </message>
    <message>
        <source>objects at the end that the data file has no line for: %1</source>
        <translation>объекты в конце, для которых нет строк в файле данных: %1</translation>
    </message>
    <message>
        <source>the data file has more lines than objects were read, so values may stand with the wrong objects</source>
        <translation>строк в файле данных больше, чем прочитано объектов, поэтому значения могли достаться не тем объектам</translation>
    </message>
    <message>
        <source>lines of the data file beyond those of the objects</source>
        <translation>строки файла данных сверх числа объектов</translation>
    </message>
    <message>
        <source>lines that are not read: </source>
        <translation>непрочитанные строки: </translation>
    </message>
    <message>
        <source>characters that the character set lacks, written as question marks: %1</source>
        <translation>символы, которых нет в кодировке, записаны вопросительными знаками: %1</translation>
    </message>
    <message>
        <source>values with a comma or a line end, which will not be read back as they are: %1</source>
        <translation>значения с запятой или концом строки, которые не прочтутся такими же: %1</translation>
    </message>
    <message>
        <source>parts of polylines beyond the first, not written: %1</source>
        <translation>части полилиний, кроме первой, не записаны: %1</translation>
    </message>
    <message>
        <source>texts with a quotation mark or a line end, which programs may misread: %1</source>
        <translation>тексты с кавычкой или концом строки, которые программы могут прочесть неверно: %1</translation>
    </message>
    <message>
        <source>coordinates that are no numbers and will not be read back: %1</source>
        <translation>координаты, которые не числа и не прочтутся: %1</translation>
    </message>
    <message>
        <source>columns whose names or types will not be read back: %1</source>
        <translation>столбцы, имена или типы которых не прочтутся: %1</translation>
    </message>
    <message>
        <source>geodesic circles and the like, written as plain regions: %1</source>
        <translation>геодезические круги и подобное, записаны как области: %1</translation>
    </message>
    <message>
        <source>rectangles, written as regions: %1</source>
        <translation>прямоугольники, записаны как области: %1</translation>
    </message>
    <message>
        <source>angles of texts: %1</source>
        <translation>углы текстов: %1</translation>
    </message>
    <message>
        <source>objects of kinds that are written without their shape: %1</source>
        <translation>объекты, вид которых записывается без формы: %1</translation>
    </message>
    <message>
        <source>the column &quot;%1&quot; cannot be written</source>
        <translation>столбец «%1» нельзя записать</translation>
    </message>
    <message>
        <source>no column can be written</source>
        <translation>ни один столбец нельзя записать</translation>
    </message>
    <message>
        <source>that is no number</source>
        <translation>это не число</translation>
    </message>
    <message>
        <source>names of columns that the format does not allow, changed: %1</source>
        <translation>имена столбцов, недопустимые в формате, изменены: %1</translation>
    </message>
    <message>
        <source>types of columns that cannot be written, changed: %1</source>
        <translation>типы столбцов, которые нельзя записать, изменены: %1</translation>
    </message>
    <message>
        <source>values that do not fit the type of their column, left out: %1</source>
        <translation>значения, не подходящие типу столбца, пропущены: %1</translation>
    </message>
    <message>
        <source>texts longer than their column, cut: %1</source>
        <translation>тексты длиннее столбца, обрезаны: %1</translation>
    </message>
    <message>
        <source>line ends in values, written as \n: %1</source>
        <translation>концы строк в значениях, записаны как \n: %1</translation>
    </message>
    <message>
        <source>numbers without a value, which become 0: %1</source>
        <translation>числа без значения, становятся нулём: %1</translation>
    </message>
    <message>
        <source>objects that cannot be read: %1</source>
        <translation>объекты, которые нельзя прочесть: %1</translation>
    </message>
    <message>
        <source>arcs, read as lines: %1</source>
        <translation>дуги, прочитаны как линии: %1</translation>
    </message>
    <message>
        <source>rounded rectangles, read as regions: %1</source>
        <translation>скруглённые прямоугольники, прочитаны как области: %1</translation>
    </message>
    <message>
        <source>ellipses that are no circles, read as regions: %1</source>
        <translation>эллипсы, которые не круги, прочитаны как области: %1</translation>
    </message>
    <message>
        <source>multipoints, read as symbols: %1</source>
        <translation>мультиточки, прочитаны как символы: %1</translation>
    </message>
    <message>
        <source>collections, read as their members: %1</source>
        <translation>коллекции, прочитаны по частям: %1</translation>
    </message>
    <message>
        <source>justifications of texts: %1</source>
        <translation>выравнивание текстов: %1</translation>
    </message>
    <message>
        <source>line spacings of texts: %1</source>
        <translation>межстрочные интервалы текстов: %1</translation>
    </message>
    <message>
        <source>label lines of texts: %1</source>
        <translation>выноски текстов: %1</translation>
    </message>
    <message>
        <source>patterns and widths of lines that have no like here</source>
        <translation>узоры и ширины линий, которым здесь нет подобных</translation>
    </message>
    <message>
        <source>patterns of areas that have no like here</source>
        <translation>штриховки, которым здесь нет подобных</translation>
    </message>
    <message>
        <source>pictures of symbols</source>
        <translation>изображения символов</translation>
    </message>
    <message>
        <source>widths of pens, changed: %1</source>
        <translation>ширины линий, изменены: %1</translation>
    </message>
    <message>
        <source>numbers of symbols beyond 255, changed: %1</source>
        <translation>номера символов больше 255, изменены: %1</translation>
    </message>
    <message>
        <source>brushes with a bitmap, written with their colour: %1</source>
        <translation>заливки рисунком, записаны своим цветом: %1</translation>
    </message>
    <message>
        <source>styles of fonts, such as bold: %1</source>
        <translation>начертания шрифтов, например полужирное: %1</translation>
    </message>
    <message>
        <source>the library cannot make an object</source>
        <translation>библиотека не может создать объект</translation>
    </message>
    <message>
        <source>shapes without points or with coordinates that are no numbers, not written: %1</source>
        <translation>фигуры без точек или с координатами, которые не числа, не записаны: %1</translation>
    </message>
    <message>
        <source>widths of text boxes that are not those of the letters: %1</source>
        <translation>ширины текстовых рамок, не равные ширине букв: %1</translation>
    </message>
    <message>
        <source>sizes of texts that do not follow the zoom: %1</source>
        <translation>размеры текстов, не зависящие от масштаба: %1</translation>
    </message>
    <message>
        <source>pictures of sprites, written as symbols: %1</source>
        <translation>изображения спрайтов, записаны как символы: %1</translation>
    </message>
    <message>
        <source>there is no such file, or the layer is on no map</source>
        <translation>такого файла нет, или слой не на карте</translation>
    </message>
    <message>
        <source>the layer was deleted before it was saved</source>
        <translation>слой был удалён до сохранения</translation>
    </message>
    <message>
        <source>this is no table that can be read. </source>
        <translation>эту таблицу нельзя прочесть. </translation>
    </message>
    <message>
        <source>the layer was deleted while it was being saved</source>
        <translation>слой был удалён во время сохранения</translation>
    </message>
    <message>
        <source>there is no such file</source>
        <translation>такого файла нет</translation>
    </message>
    <message>
        <source>this is not a file</source>
        <translation>это не файл</translation>
    </message>
    <message>
        <source>no permission to read it</source>
        <translation>нет прав на чтение</translation>
    </message>
    <message>
        <source>error in line %1: %2</source>
        <translation>ошибка в строке %1: %2</translation>
    </message>
    <message>
        <source>no format is known for files of this name</source>
        <translation>для файлов с таким именем формат неизвестен</translation>
    </message>
    <message>
        <source>%1 more warnings</source>
        <translation>ещё предупреждений: %1</translation>
    </message>
    <message>
        <source>an error of an unknown kind</source>
        <translation>ошибка неизвестного рода</translation>
    </message>
    <message>
        <source>its layer was deleted meanwhile</source>
        <translation>его слой тем временем удалён</translation>
    </message>
    <message>
        <source>lost: %1</source>
        <translation>потеряно: %1</translation>
    </message>
    <message>
        <source>all that comes after this error in line %1: %2</source>
        <translation>всё, что идёт после ошибки в строке %1: %2</translation>
    </message>
    <message>
        <source>all that comes after this error: %1</source>
        <translation>всё, что идёт после ошибки: %1</translation>
    </message>
    <message>
        <source>1 object</source>
        <translation>1 объект</translation>
    </message>
    <message numerus="yes">
        <source>%n objects</source>
        <translation>
            <numerusform>%n объект</numerusform>
            <numerusform>%n объекта</numerusform>
            <numerusform>%n объектов</numerusform>
        </translation>
    </message>
    <message>
        <source>1 line skipped</source>
        <translation>1 строка пропущена</translation>
    </message>
    <message numerus="yes">
        <source>%n lines skipped</source>
        <translation>
            <numerusform>%n строка пропущена</numerusform>
            <numerusform>%n строки пропущено</numerusform>
            <numerusform>%n строк пропущено</numerusform>
        </translation>
    </message>
    <message>
        <source>1 warning</source>
        <translation>1 предупреждение</translation>
    </message>
    <message numerus="yes">
        <source>%n warnings</source>
        <translation>
            <numerusform>%n предупреждение</numerusform>
            <numerusform>%n предупреждения</numerusform>
            <numerusform>%n предупреждений</numerusform>
        </translation>
    </message>
    <message>
        <source>error: %1</source>
        <translation>ошибка: %1</translation>
    </message>
    <message>
        <source>Another program has cut it short.</source>
        <translation>Другая программа его укоротила.</translation>
    </message>
    <message>
        <source>widths and patterns of pens</source>
        <translation>ширины и узоры линий</translation>
    </message>
    <message>
        <source>patterns and background colours of brushes</source>
        <translation>штриховки и цвета фона заливок</translation>
    </message>
    <message>
        <source>styles and angles of symbols</source>
        <translation>начертания и углы символов</translation>
    </message>
    <message>
        <source>centres of regions</source>
        <translation>центры областей</translation>
    </message>
</context>
<context>
    <name>tessera::TLayerControl</name>
    <message>
        <source>Visible</source>
        <translation>Виден</translation>
    </message>
    <message>
        <source>Visible; click to hide it</source>
        <translation>Виден; щелчок скроет его</translation>
    </message>
    <message>
        <source>Hidden; click to show it</source>
        <translation>Скрыт; щелчок покажет его</translation>
    </message>
    <message>
        <source>Selectable</source>
        <translation>Доступен для выбора</translation>
    </message>
    <message>
        <source>Its objects can be selected; click to change that</source>
        <translation>Его объекты можно выделять; щелчок изменит это</translation>
    </message>
    <message>
        <source>Its objects cannot be selected; click to change that</source>
        <translation>Его объекты нельзя выделять; щелчок изменит это</translation>
    </message>
    <message>
        <source>Editable</source>
        <translation>Правится</translation>
    </message>
    <message>
        <source>It is being edited; click to end that</source>
        <translation>Он правится; щелчок прекратит правку</translation>
    </message>
    <message>
        <source>Click to edit it</source>
        <translation>Щелчок начнёт его правку</translation>
    </message>
    <message>
        <source>Labelled</source>
        <translation>Подписан</translation>
    </message>
    <message>
        <source>Its objects are labelled; click to take the labels away</source>
        <translation>Его объекты подписаны; щелчок уберёт подписи</translation>
    </message>
    <message>
        <source>Click to label its objects</source>
        <translation>Щелчок подпишет его объекты</translation>
    </message>
    <message>
        <source>change “%1” of %2</source>
        <translation>изменить «%1» слоя %2</translation>
    </message>
    <message>
        <source>Layer</source>
        <translation>Слой</translation>
    </message>
    <message>
        <source>Layers</source>
        <translation>Слои</translation>
    </message>
</context>
<context>
    <name>tessera::TLayerFilter</name>
    <message>
        <source>more than an expression</source>
        <translation>больше, чем одно выражение</translation>
    </message>
    <message>
        <source>the layer has too many columns</source>
        <translation>у слоя слишком много столбцов</translation>
    </message>
</context>
<context>
    <name>tessera::TLayerTableModel</name>
    <message>
        <source>“%1” is longer than the %2 characters of the column.</source>
        <translation>«%1» длиннее столбца (символов: %2).</translation>
    </message>
    <message>
        <source>“%1” is not a whole number.</source>
        <translation>«%1» — не целое число.</translation>
    </message>
    <message>
        <source>%1 does not lie between %2 and %3.</source>
        <translation>%1 не лежит между %2 и %3.</translation>
    </message>
    <message>
        <source>“%1” is not a number.</source>
        <translation>«%1» — не число.</translation>
    </message>
    <message>
        <source>“%1” is neither True nor False.</source>
        <translation>«%1» — не True и не False.</translation>
    </message>
    <message>
        <source>“%1” is not a date.</source>
        <translation>«%1» — не дата.</translation>
    </message>
    <message>
        <source>“%1” is not a time of day.</source>
        <translation>«%1» — не время суток.</translation>
    </message>
    <message>
        <source>“%1” is not a date and time.</source>
        <translation>«%1» — не дата и время.</translation>
    </message>
    <message>
        <source>The object does not have this column.</source>
        <translation>У объекта нет этого столбца.</translation>
    </message>
    <message>
        <source>The columns cannot be changed.</source>
        <translation>Столбцы нельзя изменить.</translation>
    </message>
    <message>
        <source>A column needs a name.</source>
        <translation>Столбцу нужно имя.</translation>
    </message>
    <message>
        <source>There is a column “%1” already.</source>
        <translation>Столбец «%1» уже есть.</translation>
    </message>
</context>
<context>
    <name>tessera::TLeftJournal</name>
    <message>
        <source>%1 cannot be read as it was; %2 has what was changed in it</source>
        <translation>%1 нельзя прочесть таким, каким он был; в слое %2 то, что в нём изменили</translation>
    </message>
    <message>
        <source>%1 is not as it was; %2 has what was changed in it</source>
        <translation>%1 уже не такой, каким был; в слое %2 то, что в нём изменили</translation>
    </message>
</context>
<context>
    <name>tessera::TMapEdits</name>
    <message>
        <source>The copied objects are damaged.</source>
        <translation>Скопированные объекты повреждены.</translation>
    </message>
    <message>
        <source>add object</source>
        <translation>добавить объект</translation>
    </message>
    <message numerus="yes">
        <source>add objects (%n)</source>
        <translation>
            <numerusform>добавить объекты (%n)</numerusform>
            <numerusform>добавить объекты (%n)</numerusform>
            <numerusform>добавить объекты (%n)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>delete objects (%n)</source>
        <translation>
            <numerusform>удалить объекты (%n)</numerusform>
            <numerusform>удалить объекты (%n)</numerusform>
            <numerusform>удалить объекты (%n)</numerusform>
        </translation>
    </message>
    <message>
        <source>move object in the order</source>
        <translation>переставить объект</translation>
    </message>
    <message numerus="yes">
        <source>move objects (%n)</source>
        <translation>
            <numerusform>сдвинуть объекты (%n)</numerusform>
            <numerusform>сдвинуть объекты (%n)</numerusform>
            <numerusform>сдвинуть объекты (%n)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>transform objects (%n)</source>
        <translation>
            <numerusform>преобразовать объекты (%n)</numerusform>
            <numerusform>преобразовать объекты (%n)</numerusform>
            <numerusform>преобразовать объекты (%n)</numerusform>
        </translation>
    </message>
    <message>
        <source>reshape object</source>
        <translation>изменить форму объекта</translation>
    </message>
    <message numerus="yes">
        <source>change style of objects (%n)</source>
        <translation>
            <numerusform>изменить стиль объектов (%n)</numerusform>
            <numerusform>изменить стиль объектов (%n)</numerusform>
            <numerusform>изменить стиль объектов (%n)</numerusform>
        </translation>
    </message>
    <message>
        <source>change value</source>
        <translation>изменить значение</translation>
    </message>
    <message numerus="yes">
        <source>paste objects (%n)</source>
        <translation>
            <numerusform>вставить объекты (%n)</numerusform>
            <numerusform>вставить объекты (%n)</numerusform>
            <numerusform>вставить объекты (%n)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>duplicate objects (%n)</source>
        <translation>
            <numerusform>удвоить объекты (%n)</numerusform>
            <numerusform>удвоить объекты (%n)</numerusform>
            <numerusform>удвоить объекты (%n)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>bring objects to the front (%n)</source>
        <translation>
            <numerusform>объекты на передний план (%n)</numerusform>
            <numerusform>объекты на передний план (%n)</numerusform>
            <numerusform>объекты на передний план (%n)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>send objects to the back (%n)</source>
        <translation>
            <numerusform>объекты на задний план (%n)</numerusform>
            <numerusform>объекты на задний план (%n)</numerusform>
            <numerusform>объекты на задний план (%n)</numerusform>
        </translation>
    </message>
    <message>
        <source>add column</source>
        <translation>добавить столбец</translation>
    </message>
    <message>
        <source>remove column</source>
        <translation>удалить столбец</translation>
    </message>
    <message>
        <source>rename column</source>
        <translation>переименовать столбец</translation>
    </message>
    <message>
        <source>add layer</source>
        <translation>добавить слой</translation>
    </message>
    <message>
        <source>remove layer</source>
        <translation>удалить слой</translation>
    </message>
    <message>
        <source>move layer</source>
        <translation>переставить слой</translation>
    </message>
    <message>
        <source>split line</source>
        <translation>разрезать линию</translation>
    </message>
    <message>
        <source>join lines</source>
        <translation>соединить линии</translation>
    </message>
    <message numerus="yes">
        <source>reverse lines (%n)</source>
        <translation>
            <numerusform>обратить линии (%n)</numerusform>
            <numerusform>обратить линии (%n)</numerusform>
            <numerusform>обратить линии (%n)</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>align objects (%n)</source>
        <translation>
            <numerusform>выровнять объекты (%n)</numerusform>
            <numerusform>выровнять объекты (%n)</numerusform>
            <numerusform>выровнять объекты (%n)</numerusform>
        </translation>
    </message>
    <message>
        <source>move vertex</source>
        <translation>сдвинуть вершину</translation>
    </message>
    <message>
        <source>insert vertex</source>
        <translation>вставить вершину</translation>
    </message>
    <message>
        <source>delete vertex</source>
        <translation>удалить вершину</translation>
    </message>
    <message>
        <source>delete part</source>
        <translation>удалить часть</translation>
    </message>
</context>
<context>
    <name>tessera::TMapLayer</name>
    <message>
        <source>The spatial index of layer &quot;%1&quot; is out of date, so it may not show all objects.</source>
        <translation>Пространственный индекс слоя «%1» устарел, поэтому он может показать не все объекты.</translation>
    </message>
</context>
<context>
    <name>tessera::TMapMeasure</name>
    <message>
        <source>m</source>
        <translation>м</translation>
    </message>
    <message>
        <source>km</source>
        <translation>км</translation>
    </message>
    <message>
        <source>ft</source>
        <translation>фут</translation>
    </message>
    <message>
        <source>mi</source>
        <translation>миль</translation>
    </message>
</context>
<context>
    <name>tessera::TObjectProperties</name>
    <message>
        <source>(different)</source>
        <translation>(разные)</translation>
    </message>
    <message>
        <source>Property</source>
        <translation>Свойство</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
    <message>
        <source>change %1</source>
        <translation>изменить: %1</translation>
    </message>
    <message>
        <source>Line colour</source>
        <translation>Цвет линии</translation>
    </message>
    <message>
        <source>Line width</source>
        <translation>Ширина линии</translation>
    </message>
    <message>
        <source>Line style</source>
        <translation>Стиль линии</translation>
    </message>
    <message>
        <source>Area colour</source>
        <translation>Цвет заливки</translation>
    </message>
    <message>
        <source>Area style</source>
        <translation>Стиль заливки</translation>
    </message>
    <message>
        <source>Background</source>
        <translation>Фон</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Нет</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Да</translation>
    </message>
    <message>
        <source>Background colour</source>
        <translation>Цвет фона</translation>
    </message>
    <message>
        <source>Font</source>
        <translation>Шрифт</translation>
    </message>
    <message>
        <source>Font size</source>
        <translation>Размер шрифта</translation>
    </message>
    <message>
        <source>Font colour</source>
        <translation>Цвет шрифта</translation>
    </message>
    <message>
        <source>Centre x</source>
        <translation>Центр x</translation>
    </message>
    <message>
        <source>Centre y</source>
        <translation>Центр y</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Слева</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Снизу</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Справа</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Сверху</translation>
    </message>
    <message>
        <source>Vertices</source>
        <translation>Вершины</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Радиус</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Текст</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Вид</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Сплошная</translation>
    </message>
    <message>
        <source>Dashes</source>
        <translation>Штрихи</translation>
    </message>
    <message>
        <source>Dots</source>
        <translation>Точки</translation>
    </message>
    <message>
        <source>Dashes and dots</source>
        <translation>Штрихи и точки</translation>
    </message>
    <message>
        <source>Dash dot dot</source>
        <translation>Штрих и две точки</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Нет</translation>
    </message>
    <message>
        <source>Inside frame</source>
        <translation>Внутри рамки</translation>
    </message>
    <message>
        <source>Horizontal lines</source>
        <translation>Горизонтальные линии</translation>
    </message>
    <message>
        <source>Vertical lines</source>
        <translation>Вертикальные линии</translation>
    </message>
    <message>
        <source>Falling lines</source>
        <translation>Линии вниз</translation>
    </message>
    <message>
        <source>Rising lines</source>
        <translation>Линии вверх</translation>
    </message>
    <message>
        <source>Squares</source>
        <translation>Клетки</translation>
    </message>
    <message>
        <source>Diamonds</source>
        <translation>Ромбы</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Свойства</translation>
    </message>
    <message>
        <source>Opposite sides must stay apart, and what has no width or height cannot get one.</source>
        <translation>Противоположные стороны не должны сойтись, а то, у чего нет ширины или высоты, не может их получить.</translation>
    </message>
</context>
<context>
    <name>tessera::TTessera</name>
    <message>
        <source>Map</source>
        <translation>Карта</translation>
    </message>
    <message>
        <source>Circle</source>
        <translation>Круг</translation>
    </message>
    <message>
        <source>Rectangle</source>
        <translation>Прямоугольник</translation>
    </message>
    <message>
        <source>Region</source>
        <translation>Область</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>Полилиния</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Текст</translation>
    </message>
    <message>
        <source>Symbol</source>
        <translation>Символ</translation>
    </message>
    <message>
        <source>Sprite</source>
        <translation>Спрайт</translation>
    </message>
    <message>
        <source>Object</source>
        <translation>Объект</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en">
<context>
    <name>tessera::apps::EditRecovery</name>
    <message>
        <source>Edits are not kept safe: %1</source>
        <translation>Правки не откладываются: %1</translation>
    </message>
</context>
<context>
    <name>tessera::apps::EditorTools</name>
    <message>
        <source>&amp;Select</source>
        <translation>&amp;Выбор</translation>
    </message>
    <message>
        <source>Zoom &amp;in</source>
        <translation>&amp;Приблизить</translation>
    </message>
    <message>
        <source>Zoom &amp;out</source>
        <translation>&amp;Отдалить</translation>
    </message>
    <message>
        <source>&amp;Pan</source>
        <translation>&amp;Рука</translation>
    </message>
    <message>
        <source>&amp;Line</source>
        <translation>&amp;Линия</translation>
    </message>
    <message>
        <source>Pol&amp;yline</source>
        <translation>Поли&amp;линия</translation>
    </message>
    <message>
        <source>&amp;Rectangle</source>
        <translation>Прямо&amp;угольник</translation>
    </message>
    <message>
        <source>Re&amp;gion</source>
        <translation>Об&amp;ласть</translation>
    </message>
    <message>
        <source>&amp;Circle of 100 km</source>
        <translation>&amp;Круг в 100 км</translation>
    </message>
    <message>
        <source>Sy&amp;mbol</source>
        <translation>&amp;Символ</translation>
    </message>
    <message>
        <source>&amp;Text</source>
        <translation>&amp;Текст</translation>
    </message>
    <message>
        <source>Select by r&amp;ectangle</source>
        <translation>Выбор прямоуголь&amp;ником</translation>
    </message>
    <message>
        <source>Select &amp;by circle</source>
        <translation>Выбор кру&amp;гом</translation>
    </message>
    <message>
        <source>Select by polygo&amp;n</source>
        <translation>Выбор &amp;многоугольником</translation>
    </message>
    <message>
        <source>Mo&amp;ve</source>
        <translation>&amp;Двигать</translation>
    </message>
    <message>
        <source>Sc&amp;ale and turn</source>
        <translation>Ра&amp;змер и поворот</translation>
    </message>
    <message>
        <source>Drag the handles around what is selected; Shift keeps proportions, or steps of 15 degrees</source>
        <translation>Тащите ручки вокруг выделенного; Shift сохраняет пропорции или шаг в 15 градусов</translation>
    </message>
    <message>
        <source>E&amp;dit vertices</source>
        <translation>Править верши&amp;ны</translation>
    </message>
    <message>
        <source>Drag vertices and edges of the selected line or region; Delete takes a vertex out</source>
        <translation>Тащите вершины и стороны выделенной линии или области; Delete убирает вершину</translation>
    </message>
    <message>
        <source>Identif&amp;y</source>
        <translation>Опо&amp;знать</translation>
    </message>
    <message>
        <source>Me&amp;asure</source>
        <translation>И&amp;змерить</translation>
    </message>
</context>
<context>
    <name>tessera::apps::FileFilters</name>
    <message>
        <source>All map files</source>
        <translation>Все файлы карт</translation>
    </message>
</context>
<context>
    <name>tessera::apps::FindBar</name>
    <message>
        <source>Find</source>
        <translation>Найти</translation>
    </message>
    <message>
        <source>Name LIKE &apos;B%&apos; AND Population &gt; 1e6</source>
        <translation>Name LIKE &apos;B%&apos; AND Population &gt; 1e6</translation>
    </message>
    <message>
        <source>A condition over the columns of the chosen layer, as in SQL</source>
        <translation>Условие над столбцами выбранного слоя, как в SQL</translation>
    </message>
    <message>
        <source>There is no layer.</source>
        <translation>Слоя нет.</translation>
    </message>
    <message>
        <source>The objects of %1 cannot be selected.</source>
        <translation>Объекты слоя %1 нельзя выделять.</translation>
    </message>
    <message>
        <source>%1: %2 found</source>
        <translation>%1: найдено %2</translation>
    </message>
    <message>
        <source>Searching %1…</source>
        <translation>Поиск: %1…</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>The search was given up.</source>
        <translation>Поиск прерван.</translation>
    </message>
</context>
<context>
    <name>tessera::apps::HelpWindow</name>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
</context>
<context>
    <name>tessera::apps::IdentifyPanel</name>
    <message>
        <source>Object</source>
        <translation>Объект</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
    <message>
        <source>Nothing here</source>
        <translation>Здесь ничего нет</translation>
    </message>
</context>
<context>
    <name>tessera::apps::LanguageMenu</name>
    <message>
        <source>As the &amp;system</source>
        <translation>Как в &amp;системе</translation>
    </message>
    <message>
        <source>The language changes with the next start.</source>
        <translation>Язык сменится при следующем запуске.</translation>
    </message>
</context>
<context>
    <name>tessera::apps::LayerDocks</name>
    <message>
        <source>&amp;Layers</source>
        <translation>&amp;Слои</translation>
    </message>
    <message>
        <source>&amp;Attributes</source>
        <translation>&amp;Атрибуты</translation>
    </message>
    <message>
        <source>&amp;Identified</source>
        <translation>&amp;Опознанное</translation>
    </message>
    <message>
        <source>&amp;Properties</source>
        <translation>Сво&amp;йства</translation>
    </message>
    <message>
        <source>The layer that is drawn into</source>
        <translation>Слой, в котором рисуют</translation>
    </message>
    <message>
        <source>Nothing editable</source>
        <translation>Ничего не правится</translation>
    </message>
    <message>
        <source>edit layer</source>
        <translation>править слой</translation>
    </message>
</context>
<context>
    <name>tessera::apps::LayerFiles</name>
    <message>
        <source>Save layer</source>
        <translation>Сохранение слоя</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>&amp;Заменить</translation>
    </message>
    <message>
        <source>Unsaved changes</source>
        <translation>Несохранённые изменения</translation>
    </message>
    <message>
        <source>The layer %1 has changes that are not saved. Save them?</source>
        <translation>В слое %1 есть несохранённые изменения. Сохранить их?</translation>
    </message>
    <message>
        <source>The editor came to a sudden end before these layers were saved. Restore them?</source>
        <translation>Редактор внезапно завершился до сохранения этих слоёв. Восстановить их?</translation>
    </message>
    <message>
        <source>&amp;Restore</source>
        <translation>&amp;Восстановить</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Отбросить</translation>
    </message>
    <message>
        <source>Ask &amp;later</source>
        <translation>Спросить &amp;позже</translation>
    </message>
    <message>
        <source>Save layer as</source>
        <translation>Сохранить слой как</translation>
    </message>
    <message>
        <source>Replacing %1 by this layer loses:</source>
        <translation>При замене файла %1 этим слоем пропадёт:</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>Файл %1 записан</translation>
    </message>
    <message>
        <source>Open map files</source>
        <translation>Открыть файлы карт</translation>
    </message>
</context>
<context>
    <name>tessera::apps::LoadingPanel</name>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Stop opening files</source>
        <translation>Прекратить открытие файлов</translation>
    </message>
</context>
<context>
    <name>tessera::apps::MapDecorations</name>
    <message>
        <source>&amp;Scale bar</source>
        <translation>&amp;Масштабная линейка</translation>
    </message>
    <message>
        <source>Le&amp;gend</source>
        <translation>&amp;Легенда</translation>
    </message>
</context>
<context>
    <name>tessera::apps::MapOpening</name>
    <message>
        <source>there is no file of the table %1</source>
        <translation>нет файла таблицы %1</translation>
    </message>
    <message>
        <source>%1 could not be read whole</source>
        <translation>%1 прочитана не полностью</translation>
    </message>
    <message>
        <source>%1 statements are passed over, the first in line %2: %3</source>
        <translation>пропущено операторов: %1, первый в строке %2: %3</translation>
    </message>
    <message>
        <source>there is no such file, or it cannot be read</source>
        <translation>такого файла нет, или его нельзя прочесть</translation>
    </message>
    <message>
        <source>the workspace shows no table that is here</source>
        <translation>рабочий набор не показывает ни одной имеющейся таблицы</translation>
    </message>
    <message>
        <source>MapInfo workspaces (*.wor)</source>
        <translation>Рабочие наборы MapInfo (*.wor)</translation>
    </message>
</context>
<context>
    <name>tessera::apps::MessageBar</name>
    <message>
        <source>Dismiss</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>%1 more</source>
        <translation>ещё %1</translation>
    </message>
</context>
<context>
    <name>tessera::apps::NewLayerDialog</name>
    <message>
        <source>Text</source>
        <translation>Текст</translation>
    </message>
    <message>
        <source>Whole number</source>
        <translation>Целое число</translation>
    </message>
    <message>
        <source>Small whole number</source>
        <translation>Малое целое число</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Число</translation>
    </message>
    <message>
        <source>Decimal number</source>
        <translation>Десятичное число</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Дата</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>Date and time</source>
        <translation>Дата и время</translation>
    </message>
    <message>
        <source>Yes or no</source>
        <translation>Да или нет</translation>
    </message>
    <message>
        <source>New layer</source>
        <translation>Новый слой</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Тип</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Размер</translation>
    </message>
    <message>
        <source>&amp;Name:</source>
        <translation>&amp;Имя:</translation>
    </message>
    <message>
        <source>&amp;Fields:</source>
        <translation>&amp;Столбцы:</translation>
    </message>
    <message>
        <source>&amp;Add field</source>
        <translation>&amp;Добавить столбец</translation>
    </message>
    <message>
        <source>&amp;Remove field</source>
        <translation>&amp;Убрать столбец</translation>
    </message>
</context>
<context>
    <name>tessera::apps::OptionsDialog</name>
    <message>
        <source>New objects</source>
        <translation>Новые объекты</translation>
    </message>
    <message>
        <source>&amp;Lines</source>
        <translation>&amp;Линии</translation>
    </message>
    <message>
        <source>&amp;Areas</source>
        <translation>&amp;Области</translation>
    </message>
    <message>
        <source>&amp;Texts</source>
        <translation>&amp;Тексты</translation>
    </message>
    <message>
        <source>&amp;Symbols</source>
        <translation>&amp;Символы</translation>
    </message>
    <message>
        <source>&amp;Colour:</source>
        <translation>&amp;Цвет:</translation>
    </message>
    <message>
        <source>&amp;Width:</source>
        <translation>&amp;Ширина:</translation>
    </message>
    <message>
        <source> px</source>
        <translation> пкс</translation>
    </message>
    <message>
        <source>&amp;Style:</source>
        <translation>Сти&amp;ль:</translation>
    </message>
    <message>
        <source>&amp;Background</source>
        <translation>&amp;Фон</translation>
    </message>
    <message>
        <source>&amp;Font:</source>
        <translation>&amp;Шрифт:</translation>
    </message>
    <message>
        <source>S&amp;ize:</source>
        <translation>&amp;Размер:</translation>
    </message>
    <message>
        <source> pt</source>
        <translation> пт</translation>
    </message>
    <message>
        <source>%1, %2 pt</source>
        <translation>%1, %2 пт</translation>
    </message>
</context>
<context>
    <name>tessera::apps::PictureFile</name>
    <message>
        <source>the picture cannot be written: %1</source>
        <translation>изображение нельзя записать: %1</translation>
    </message>
    <message>
        <source>Pictures</source>
        <translation>Изображения</translation>
    </message>
</context>
<context>
    <name>tessera::apps::StatusPanel</name>
    <message>
        <source>Nothing editable</source>
        <translation>Ничего не правится</translation>
    </message>
    <message>
        <source>Editing %1</source>
        <translation>Правится %1</translation>
    </message>
    <message>
        <source>Selected: %1</source>
        <translation>Выделено: %1</translation>
    </message>
    <message>
        <source>Zoom %1</source>
        <translation>Масштаб %1</translation>
    </message>
</context>
<context>
    <name>tessera::apps::SymbolPicker</name>
    <message>
        <source>Symbol %1</source>
        <translation>Символ %1</translation>
    </message>
</context>
<context>
    <name>tessera::apps::TEditorWindow</name>
    <message>
        <source>&amp;Vertices</source>
        <translation>&amp;Вершины</translation>
    </message>
    <message>
        <source>&amp;Intersections</source>
        <translation>&amp;Пересечения</translation>
    </message>
    <message>
        <source>&amp;Edges</source>
        <translation>&amp;Стороны</translation>
    </message>
    <message>
        <source>The place under the &amp;pointer</source>
        <translation>Место под &amp;указателем</translation>
    </message>
    <message>
        <source>The &amp;middle of the view</source>
        <translation>&amp;Середину вида</translation>
    </message>
    <message>
        <source>The first &amp;selected object</source>
        <translation>Первый &amp;выделенный объект</translation>
    </message>
    <message>
        <source>Align &amp;left</source>
        <translation>По &amp;левому краю</translation>
    </message>
    <message>
        <source>Align &amp;right</source>
        <translation>По &amp;правому краю</translation>
    </message>
    <message>
        <source>Align &amp;top</source>
        <translation>По &amp;верхнему краю</translation>
    </message>
    <message>
        <source>Align &amp;bottom</source>
        <translation>По &amp;нижнему краю</translation>
    </message>
    <message>
        <source>Center &amp;horizontally</source>
        <translation>По &amp;середине вдоль x</translation>
    </message>
    <message>
        <source>Center &amp;vertically</source>
        <translation>По середине вдоль &amp;y</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Файл</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлы</translation>
    </message>
    <message>
        <source>&amp;New layer…</source>
        <translation>&amp;Новый слой…</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>&amp;Открыть…</translation>
    </message>
    <message>
        <source>&amp;Save layer</source>
        <translation>&amp;Сохранить слой</translation>
    </message>
    <message>
        <source>Save layer &amp;as…</source>
        <translation>Сохранить слой &amp;как…</translation>
    </message>
    <message>
        <source>&amp;Close layer</source>
        <translation>&amp;Закрыть слой</translation>
    </message>
    <message>
        <source>&amp;Export picture…</source>
        <translation>&amp;Экспорт изображения…</translation>
    </message>
    <message>
        <source>Print pre&amp;view…</source>
        <translation>Предварительный п&amp;росмотр…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>&amp;Печать…</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>В&amp;ыход</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Правка</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Отменить</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>Ве&amp;рнуть</translation>
    </message>
    <message>
        <source>Cu&amp;t objects</source>
        <translation>&amp;Вырезать объекты</translation>
    </message>
    <message>
        <source>&amp;Copy objects</source>
        <translation>&amp;Копировать объекты</translation>
    </message>
    <message>
        <source>&amp;Paste objects</source>
        <translation>Вст&amp;авить объекты</translation>
    </message>
    <message>
        <source>Dup&amp;licate objects</source>
        <translation>У&amp;двоить объекты</translation>
    </message>
    <message>
        <source>Bring to &amp;front</source>
        <translation>На &amp;передний план</translation>
    </message>
    <message>
        <source>Send to &amp;back</source>
        <translation>На &amp;задний план</translation>
    </message>
    <message>
        <source>&amp;Delete selected objects</source>
        <translation>&amp;Удалить выделенные объекты</translation>
    </message>
    <message>
        <source>Select &amp;nothing</source>
        <translation>С&amp;нять выделение</translation>
    </message>
    <message>
        <source>Copy p&amp;icture</source>
        <translation>Копировать &amp;изображение</translation>
    </message>
    <message>
        <source>Fi&amp;nd…</source>
        <translation>Най&amp;ти…</translation>
    </message>
    <message>
        <source>New &amp;objects…</source>
        <translation>Новые о&amp;бъекты…</translation>
    </message>
    <message>
        <source>&amp;Object</source>
        <translation>&amp;Объект</translation>
    </message>
    <message>
        <source>&amp;Split line at vertex</source>
        <translation>&amp;Разрезать линию в вершине</translation>
    </message>
    <message>
        <source>&amp;Join lines</source>
        <translation>&amp;Соединить линии</translation>
    </message>
    <message>
        <source>No ends of selected lines meet.</source>
        <translation>Концы выделенных линий нигде не сходятся.</translation>
    </message>
    <message>
        <source>Re&amp;verse lines</source>
        <translation>&amp;Обратить линии</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Вид</translation>
    </message>
    <message>
        <source>Fit &amp;all</source>
        <translation>Показать &amp;всё</translation>
    </message>
    <message>
        <source>Fit &amp;layer</source>
        <translation>Показать с&amp;лой</translation>
    </message>
    <message>
        <source>Fit &amp;selection</source>
        <translation>Показать в&amp;ыделенное</translation>
    </message>
    <message>
        <source>&amp;Rotate…</source>
        <translation>По&amp;вернуть…</translation>
    </message>
    <message>
        <source>Rotate &amp;back</source>
        <translation>Повернуть &amp;обратно</translation>
    </message>
    <message>
        <source>The &amp;wheel keeps</source>
        <translation>&amp;Колесо сохраняет</translation>
    </message>
    <message>
        <source>&amp;Layer</source>
        <translation>С&amp;лой</translation>
    </message>
    <message>
        <source>Edit or &amp;stop editing</source>
        <translation>Править или &amp;закончить правку</translation>
    </message>
    <message>
        <source>edit layer</source>
        <translation>править слой</translation>
    </message>
    <message>
        <source>&amp;Label or stop labelling</source>
        <translation>&amp;Подписать или убрать подписи</translation>
    </message>
    <message>
        <source>label layer</source>
        <translation>подписать слой</translation>
    </message>
    <message>
        <source>Move &amp;up</source>
        <translation>&amp;Выше</translation>
    </message>
    <message>
        <source>Move &amp;down</source>
        <translation>&amp;Ниже</translation>
    </message>
    <message>
        <source>Snap to</source>
        <translation>Привязка</translation>
    </message>
    <message>
        <source>&amp;Grid…</source>
        <translation>&amp;Сетка…</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Инструменты</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Инструменты</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>&amp;Недавние файлы</translation>
    </message>
    <message>
        <source>&amp;Units</source>
        <translation>&amp;Единицы</translation>
    </message>
    <message>
        <source>Tessera editor[*]</source>
        <translation>Редактор Tessera[*]</translation>
    </message>
    <message>
        <source>There is no layer.</source>
        <translation>Слоя нет.</translation>
    </message>
    <message>
        <source>new layer</source>
        <translation>новый слой</translation>
    </message>
    <message numerus="yes">
        <source>Selected objects that stay, for their layer is not editable: %n</source>
        <translation>
            <numerusform>Выделенные объекты, которые остаются, так как их слой не правится: %n</numerusform>
            <numerusform>Выделенные объекты, которые остаются, так как их слой не правится: %n</numerusform>
            <numerusform>Выделенные объекты, которые остаются, так как их слой не правится: %n</numerusform>
        </translation>
    </message>
    <message>
        <source>A line is split at the vertex that was touched last with the vertex tool, not at its ends.</source>
        <translation>Линия разрезается в вершине, которой последней коснулся инструмент вершин, но не на концах.</translation>
    </message>
    <message>
        <source>There is no editable layer to paste into.</source>
        <translation>Нет правимого слоя, куда вставить.</translation>
    </message>
    <message>
        <source>%1 is written</source>
        <translation>Файл %1 записан</translation>
    </message>
    <message>
        <source>Export picture</source>
        <translation>Экспорт изображения</translation>
    </message>
    <message>
        <source>Rotate map</source>
        <translation>Поворот карты</translation>
    </message>
    <message>
        <source>Angle, clockwise, in degrees:</source>
        <translation>Угол по часовой стрелке, в градусах:</translation>
    </message>
    <message>
        <source>Grid</source>
        <translation>Сетка</translation>
    </message>
    <message>
        <source>Distance of the grid&apos;s points, in map units; 0 for none:</source>
        <translation>Расстояние между узлами сетки в единицах карты; 0 — без сетки:</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Справка</translation>
    </message>
    <message>
        <source>&amp;How to work with the editor</source>
        <translation>&amp;Как работать с редактором</translation>
    </message>
    <message>
        <source>Open the &amp;sample map</source>
        <translation>Открыть карту-&amp;образец</translation>
    </message>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Язык</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>О &amp;программе</translation>
    </message>
    <message>
        <source>About</source>
        <translation>О программе</translation>
    </message>
    <message>
        <source>Tessera editor %1
Shows and edits vector maps.</source>
        <translation>Редактор Tessera %1
Показывает и правит векторные карты.</translation>
    </message>
    <message>
        <source>What is drawn, moved and reshaped goes to vertices near the mouse</source>
        <translation>То, что рисуют, двигают и перекраивают, притягивается к вершинам у указателя</translation>
    </message>
    <message>
        <source>What is drawn, moved and reshaped goes to where edges near the mouse cross</source>
        <translation>То, что рисуют, двигают и перекраивают, притягивается к пересечениям сторон у указателя</translation>
    </message>
    <message>
        <source>What is drawn, moved and reshaped goes to edges near the mouse</source>
        <translation>То, что рисуют, двигают и перекраивают, притягивается к сторонам у указателя</translation>
    </message>
    <message>
        <source>Moves the selected objects to the left of what they take up together</source>
        <translation>Сдвигает выделенные объекты к левому краю их общей рамки</translation>
    </message>
    <message>
        <source>Moves the selected objects to the right of what they take up together</source>
        <translation>Сдвигает выделенные объекты к правому краю их общей рамки</translation>
    </message>
    <message>
        <source>Moves the selected objects to the top of what they take up together</source>
        <translation>Сдвигает выделенные объекты к верхнему краю их общей рамки</translation>
    </message>
    <message>
        <source>Moves the selected objects to the bottom of what they take up together</source>
        <translation>Сдвигает выделенные объекты к нижнему краю их общей рамки</translation>
    </message>
    <message>
        <source>Moves the selected objects left and right, until their middles lie one above the other</source>
        <translation>Сдвигает выделенные объекты влево и вправо, пока их середины не лягут одна над другой</translation>
    </message>
    <message>
        <source>Moves the selected objects up and down, until their middles lie side by side</source>
        <translation>Сдвигает выделенные объекты вверх и вниз, пока их середины не лягут в ряд</translation>
    </message>
    <message>
        <source>Splits the line at the vertex that the vertex tool has touched last</source>
        <translation>Разрезает линию в вершине, которой последней коснулся инструмент вершин</translation>
    </message>
    <message>
        <source>Joins the selected lines whose ends meet</source>
        <translation>Соединяет выделенные линии, концы которых сходятся</translation>
    </message>
    <message>
        <source>Reverses the direction of the selected lines</source>
        <translation>Меняет направление выделенных линий на обратное</translation>
    </message>
    <message>
        <source>What is drawn, moved and reshaped goes to the points of a grid</source>
        <translation>То, что рисуют, двигают и перекраивают, притягивается к узлам сетки</translation>
    </message>
</context>
<context>
    <name>tessera::apps::UnitsMenu</name>
    <message>
        <source>&amp;Kilometres</source>
        <translation>&amp;Километры</translation>
    </message>
    <message>
        <source>&amp;Metres</source>
        <translation>&amp;Метры</translation>
    </message>
    <message>
        <source>M&amp;iles</source>
        <translation>М&amp;или</translation>
    </message>
    <message>
        <source>&amp;Feet</source>
        <translation>&amp;Футы</translation>
    </message>
    <message>
        <source>Map &amp;units</source>
        <translation>&amp;Единицы карты</translation>
    </message>
    <message>
        <source>Coordinates are &amp;degrees</source>
        <translation>Координаты в &amp;градусах</translation>
    </message>
    <message>
        <source>Otherwise they are metres</source>
        <translation>Иначе они в метрах</translation>
    </message>
</context>
</TS>

<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ar" sourcelanguage="en">
<context>
    <name>FormatChoice</name>
    <message>
        <source>Comma  ,</source>
        <translation>فاصلة  ,</translation>
    </message>
    <message>
        <source>Semicolon  ;</source>
        <translation>فاصلة منقوطة  ;</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>جدولة</translation>
    </message>
    <message>
        <source>Bar  |</source>
        <translation>خط عمودي  |</translation>
    </message>
    <message>
        <source>Point  1.5</source>
        <translation>نقطة  1.5</translation>
    </message>
    <message>
        <source>Comma  1,5</source>
        <translation>فاصلة  1,5</translation>
    </message>
</context>
<context>
    <name>LineFields</name>
    <message>
        <source>Part#</source>
        <translation>رقم القطعة</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>المنتج</translation>
    </message>
    <message>
        <source>Qty</source>
        <translation>الكمية</translation>
    </message>
    <message>
        <source>Unit Price</source>
        <translation>سعر الوحدة</translation>
    </message>
    <message>
        <source>Disc%</source>
        <translation>الخصم %</translation>
    </message>
    <message>
        <source>Ext Price</source>
        <translation>السعر الإجمالي</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>ملاحظة</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>المفتاح</translation>
    </message>
</context>
<context>
    <name>OpenQuote</name>
    <message>
        <source>%1 on %2 since %3</source>
        <translation>%1 على %2 منذ %3</translation>
    </message>
    <message>
        <source>“%1” is open elsewhere: %2.

Who saves last would overwrite the other&apos;s work.</source>
        <translation>الملف «%1» مفتوح في مكان آخر: %2.

من يحفظ أخيرًا سيستبدل عمل الآخر.</translation>
    </message>
    <message>
        <source>Open to &amp;Read</source>
        <translation>فتح للقراءة (&amp;ق)</translation>
    </message>
    <message>
        <source>Open &amp;Anyway</source>
        <translation>فتح على أي حال (&amp;ح)</translation>
    </message>
    <message>
        <source>&amp;Overwrite</source>
        <translation>الكتابة فوقه (&amp;ك)</translation>
    </message>
    <message>
        <source>“%1” is open elsewhere: %2.</source>
        <translation>الملف «%1» مفتوح في مكان آخر: %2.</translation>
    </message>
    <message>
        <source>Another program has changed “%1” since it was opened here, at %2.

Saving would overwrite these changes.</source>
        <translation>غيّر برنامج آخر الملف «%1» بعد فتحه هنا، وذلك في %2.

سيؤدي الحفظ إلى الكتابة فوق هذه التغييرات.</translation>
    </message>
    <message>
        <source>“%1” has been deleted or moved since it was opened here.</source>
        <translation>حُذف الملف «%1» أو نُقل بعد فتحه هنا.</translation>
    </message>
    <message>
        <source>&amp;Save There Again</source>
        <translation>حفظ هناك مجددًا (&amp;ه)</translation>
    </message>
    <message>
        <source>Save &amp;Elsewhere…</source>
        <translation>حفظ في مكان آخر (&amp;م)…</translation>
    </message>
</context>
<context>
    <name>PlainBox</name>
    <message>
        <source>Orvan Desk</source>
        <translation>Orvan Desk</translation>
    </message>
</context>
<context>
    <name>PrintOptions</name>
    <message>
        <source>The tax rate in the settings, “%1”, is not 0 to 100 percent: no tax is printed.</source>
        <translation>معدل الضريبة في الإعدادات، «%1»، ليس بين 0 و100 بالمئة: لن تُطبع أي ضريبة.</translation>
    </message>
    <message>
        <source>The page in the settings, “%1”, cannot be used: %2 is printed.</source>
        <translation>لا يمكن استخدام الصفحة المحددة في الإعدادات، «%1»: ستُستخدم %2 للطباعة.</translation>
    </message>
</context>
<context>
    <name>PrintedQuote</name>
    <message>
        <source>The logo “%1” cannot be printed: %2.</source>
        <translation>لا يمكن طباعة الشعار «%1»: %2.</translation>
    </message>
</context>
<context>
    <name>QuoteLocale</name>
    <message>
        <source>This quote does not say its currency. It is now taken to be in %1.</source>
        <translation>لا يذكر عرض السعر هذا عملته. سيُفترض الآن أنه بعملة %1.</translation>
    </message>
</context>
<context>
    <name>orvan</name>
    <message>
        <source>#</source>
        <translation>#</translation>
    </message>
    <message>
        <source>%1 fields where the first line has %2</source>
        <translation>عدد الحقول %1، بينما هو في السطر الأول %2</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>‏%1: %2</translation>
    </message>
    <message>
        <source>%1: not found</source>
        <translation>غير موجود: %1</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>إلغاء (&amp;غ)</translation>
    </message>
    <message>
        <source>&amp;Delete Product</source>
        <translation>حذف المنتج (&amp;ذ)</translation>
    </message>
    <message>
        <source>&amp;Discount%</source>
        <translation>الخصم % (&amp;خ)</translation>
    </message>
    <message>
        <source>&amp;Ext Price</source>
        <translation>السعر الإجمالي (&amp;ل)</translation>
    </message>
    <message>
        <source>&amp;First</source>
        <translation>الأ&amp;ول</translation>
    </message>
    <message>
        <source>&amp;Goto Product</source>
        <translation>الانتقال إلى منتج (&amp;ن)</translation>
    </message>
    <message>
        <source>&amp;Last</source>
        <translation>الأخير (&amp;خ)</translation>
    </message>
    <message>
        <source>&amp;New Product</source>
        <translation>منتج جديد (&amp;ج)</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>التالي (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;Note</source>
        <translation>ملاحظة (&amp;م)</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>السابق (&amp;س)</translation>
    </message>
    <message>
        <source>&amp;Product</source>
        <translation>المنتج (&amp;ج)</translation>
    </message>
    <message>
        <source>&amp;Quantity</source>
        <translation>الكمية (&amp;ك)</translation>
    </message>
    <message>
        <source>&amp;Save &amp;&amp; Close</source>
        <translation>حفظ وإغلاق (&amp;ح)</translation>
    </message>
    <message>
        <source>&amp;Total</source>
        <translation>المجمو&amp;ع</translation>
    </message>
    <message>
        <source>&amp;Unit Price</source>
        <translation>سعر الوحدة (&amp;س)</translation>
    </message>
    <message>
        <source>A product holds characters that are not valid text.</source>
        <translation>يحتوي أحد المنتجات على محارف ليست نصًا صالحًا.</translation>
    </message>
    <message>
        <source>Add new product</source>
        <translation>إضافة منتج جديد</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>إضافة</translation>
    </message>
    <message>
        <source>Application-defined or object-defined error</source>
        <translation>خطأ معرَّف من قبل التطبيق أو الكائن</translation>
    </message>
    <message>
        <source>Are you sure you want to delete the current product?</source>
        <translation>هل تريد بالتأكيد حذف المنتج الحالي؟</translation>
    </message>
    <message>
        <source>Automation error</source>
        <translation>خطأ في الأتمتة</translation>
    </message>
    <message>
        <source>Class does not support the expected interface</source>
        <translation>لا تدعم الفئة الواجهة المتوقعة</translation>
    </message>
    <message>
        <source>Component can&apos;t create object</source>
        <translation>لا يمكن للمكوّن إنشاء الكائن</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>نسخ</translation>
    </message>
    <message>
        <source>Could not save the current product due to an error.</source>
        <translation>تعذّر حفظ المنتج الحالي بسبب خطأ.</translation>
    </message>
    <message>
        <source>Could not undo the changes due to an error. The dialog stays open.</source>
        <translation>تعذّر التراجع عن التغييرات بسبب خطأ. ستبقى النافذة مفتوحة.</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>قص</translation>
    </message>
    <message>
        <source>D&amp;uplicate Product</source>
        <translation>تكرار المنتج (&amp;ت)</translation>
    </message>
    <message>
        <source>Delete current product</source>
        <translation>حذف المنتج الحالي</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>حذف</translation>
    </message>
    <message>
        <source>Disc%</source>
        <translation>الخصم %</translation>
    </message>
    <message>
        <source>Division by zero</source>
        <translation>القسمة على صفر</translation>
    </message>
    <message>
        <source>Duplicate</source>
        <translation>تكرار</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>تعديل</translation>
    </message>
    <message>
        <source>Error %1: %2</source>
        <translation>الخطأ %1: %2</translation>
    </message>
    <message>
        <source>Ext Price</source>
        <translation>السعر الإجمالي</translation>
    </message>
    <message>
        <source>Find Next</source>
        <translation>بحث عن التالي</translation>
    </message>
    <message>
        <source>Find Previous</source>
        <translation>بحث عن السابق</translation>
    </message>
    <message>
        <source>First Column</source>
        <translation>العمود الأول</translation>
    </message>
    <message>
        <source>Form already displayed; can&apos;t show modally</source>
        <translation>النموذج معروض بالفعل؛ لا يمكن عرضه كنافذة حصرية</translation>
    </message>
    <message>
        <source>Go to first product</source>
        <translation>الانتقال إلى المنتج الأول</translation>
    </message>
    <message>
        <source>Go to last product</source>
        <translation>الانتقال إلى المنتج الأخير</translation>
    </message>
    <message>
        <source>Go to next product</source>
        <translation>الانتقال إلى المنتج التالي</translation>
    </message>
    <message>
        <source>Go to previous product</source>
        <translation>الانتقال إلى المنتج السابق</translation>
    </message>
    <message>
        <source>If you answer No, the whole list goes back to what it was.</source>
        <translation>إذا أجبت بـ«لا»، فستعود القائمة كلها إلى ما كانت عليه.</translation>
    </message>
    <message>
        <source>Internal error</source>
        <translation>خطأ داخلي</translation>
    </message>
    <message>
        <source>Invalid file format</source>
        <translation>تنسيق الملف غير صالح</translation>
    </message>
    <message>
        <source>Invalid procedure call or argument</source>
        <translation>استدعاء إجراء غير صالح أو وسيطة غير صالحة</translation>
    </message>
    <message>
        <source>Invalid property value</source>
        <translation>قيمة الخاصية غير صالحة</translation>
    </message>
    <message>
        <source>Invalid use of Null</source>
        <translation>استخدام غير صالح للقيمة الخالية (Null)</translation>
    </message>
    <message>
        <source>It cannot be opened: %1.</source>
        <translation>لا يمكن فتح الملف: %1.</translation>
    </message>
    <message>
        <source>It cannot be written: %1.</source>
        <translation>لا يمكن كتابة الملف: %1.</translation>
    </message>
    <message>
        <source>It has been written, but a power failure now could bring the former one back: %1.</source>
        <translation>كُتب الملف، لكن انقطاع التيار الآن قد يعيد الملف السابق: %1.</translation>
    </message>
    <message>
        <source>It is damaged at %1: %2.</source>
        <translation>الملف تالف عند %1: %2.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; holds half a character.</source>
        <translation>الملف تالف: يحتوي «%1» على نصف محرف.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is missing.</source>
        <translation>الملف تالف: «%1» مفقود.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is not a date.</source>
        <translation>الملف تالف: «%1» ليس تاريخًا.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is not a text.</source>
        <translation>الملف تالف: «%1» ليس نصًا.</translation>
    </message>
    <message>
        <source>It is damaged: &quot;%1&quot; is not the code of a currency, which is three capital letters: &quot;%2&quot;.</source>
        <translation>الملف تالف: «%1» ليس رمز عملة مكوّنًا من ثلاثة أحرف كبيرة: «%2».</translation>
    </message>
    <message>
        <source>It is not a quote file.</source>
        <translation>هذا ليس ملف عرض سعر.</translation>
    </message>
    <message>
        <source>It was written by another version of the desk (%1).</source>
        <translation>كُتب الملف بإصدار آخر من Orvan Desk (%1).</translation>
    </message>
    <message>
        <source>Its products cannot be read. %1.</source>
        <translation>لا يمكن قراءة منتجات الملف. %1.</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>المفتاح</translation>
    </message>
    <message>
        <source>Main</source>
        <translation>القائمة الرئيسية</translation>
    </message>
    <message>
        <source>Menu of the Row</source>
        <translation>قائمة الصف</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>نقل إلى أسفل</translation>
    </message>
    <message>
        <source>Move Product Down In The List</source>
        <translation>نقل المنتج إلى أسفل في القائمة</translation>
    </message>
    <message>
        <source>Move Product Up In the List</source>
        <translation>نقل المنتج إلى أعلى في القائمة</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>نقل إلى أعلى</translation>
    </message>
    <message>
        <source>No recovery copy of the unsaved changes could be written: %1.</source>
        <translation>تعذّرت كتابة نسخة استعادة من التغييرات غير المحفوظة: %1.</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>ملاحظة</translation>
    </message>
    <message>
        <source>Nothing was added, because the list would be too large to be saved: %1 bytes, and at most %2 are possible.</source>
        <translation>لم يُضف شيء، لأن القائمة ستصبح أكبر من أن تُحفظ: %1 بايت، والحد الأقصى %2.</translation>
    </message>
    <message>
        <source>Nothing was pasted.</source>
        <translation>لم يُلصق شيء.</translation>
    </message>
    <message>
        <source>Object required</source>
        <translation>مطلوب كائن</translation>
    </message>
    <message>
        <source>Object variable not set</source>
        <translation>لم يُعيَّن متغير الكائن</translation>
    </message>
    <message>
        <source>Object was unloaded</source>
        <translation>أُلغي تحميل الكائن</translation>
    </message>
    <message>
        <source>Orvan writes no trace to &quot;%1&quot;: %2</source>
        <translation>لا يكتب Orvan سجل التتبع في «%1»: %2</translation>
    </message>
    <message>
        <source>Out of memory</source>
        <translation>الذاكرة غير كافية</translation>
    </message>
    <message>
        <source>Out of string space</source>
        <translation>لا توجد مساحة كافية للسلاسل النصية</translation>
    </message>
    <message>
        <source>Overflow</source>
        <translation>تجاوز السعة</translation>
    </message>
    <message>
        <source>P&amp;art#</source>
        <translation>&amp;رقم القطعة</translation>
    </message>
    <message>
        <source>P&amp;roduct</source>
        <translation>المنتج (&amp;ت)</translation>
    </message>
    <message>
        <source>Part#</source>
        <translation>رقم القطعة</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>لصق</translation>
    </message>
    <message>
        <source>Path/File access error</source>
        <translation>خطأ في الوصول إلى المسار/الملف</translation>
    </message>
    <message>
        <source>Please select a product first</source>
        <translation>يُرجى تحديد منتج أولًا</translation>
    </message>
    <message>
        <source>Product %1: this discount is not possible</source>
        <translation>المنتج %1: هذا الخصم غير ممكن</translation>
    </message>
    <message>
        <source>Product %1: this quantity is not possible</source>
        <translation>المنتج %1: هذه الكمية غير ممكنة</translation>
    </message>
    <message>
        <source>Product %1: this unit price is not possible</source>
        <translation>المنتج %1: سعر الوحدة هذا غير ممكن</translation>
    </message>
    <message>
        <source>Product Information</source>
        <translation>معلومات المنتج</translation>
    </message>
    <message>
        <source>Product</source>
        <translation>المنتج</translation>
    </message>
    <message>
        <source>Products string, product %1</source>
        <translation>بيانات المنتجات، المنتج %1</translation>
    </message>
    <message>
        <source>Products string, product %1, field %2</source>
        <translation>بيانات المنتجات، المنتج %1، الحقل %2</translation>
    </message>
    <message>
        <source>Products that differ: %1.</source>
        <translation>عدد المنتجات المختلفة: %1.</translation>
    </message>
    <message>
        <source>Qty</source>
        <translation>الكمية</translation>
    </message>
    <message>
        <source>Row %1 has %2 cells, and there are only %3 columns</source>
        <translation>عدد الخلايا في الصف %1 هو %2، وعدد الأعمدة %3 فقط</translation>
    </message>
    <message>
        <source>Row %1, column &quot;%2&quot;: &quot;%3&quot; %4</source>
        <translation>الصف %1، العمود «%2»: «%3» %4</translation>
    </message>
    <message>
        <source>Row %1: a quotation mark is not closed</source>
        <translation>الصف %1: علامة اقتباس غير مغلقة</translation>
    </message>
    <message>
        <source>Second Column</source>
        <translation>العمود الثاني</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>تحديد الكل</translation>
    </message>
    <message>
        <source>Subscript out of range</source>
        <translation>الفهرس خارج النطاق</translation>
    </message>
    <message>
        <source>The catalogue &quot;%1&quot; cannot be used: %2.</source>
        <translation>لا يمكن استخدام الكتالوج «%1»: %2.</translation>
    </message>
    <message>
        <source>The list cannot show %1 products</source>
        <translation>لا يمكن للقائمة عرض منتجات عددها %1</translation>
    </message>
    <message>
        <source>The product information has been modified, would you like to save the changes?</source>
        <translation>عُدِّلت معلومات المنتج. هل تريد حفظ التغييرات؟</translation>
    </message>
    <message>
        <source>The product manager counts %1 products</source>
        <translation>عدد المنتجات بحسب مدير المنتجات: %1</translation>
    </message>
    <message>
        <source>The products take %1 bytes; at most %2 bytes can be kept</source>
        <translation>تشغل المنتجات %1 بايت؛ ويمكن حفظ %2 بايت على الأكثر</translation>
    </message>
    <message>
        <source>The recovery copy “%1” could not be removed: %2.</source>
        <translation>تعذّرت إزالة نسخة الاستعادة «%1»: %2.</translation>
    </message>
    <message>
        <source>The total of the products is beyond the range of an amount</source>
        <translation>مجموع المنتجات خارج نطاق المبالغ الممكنة</translation>
    </message>
    <message>
        <source>The total size of the product data for an IBO has exceeded the maximum limit of %1 bytes. Please try limiting the amount of data you put in the product note field (this or other products in this IBO) and try saving the product info again.</source>
        <translation>تجاوز الحجم الإجمالي لبيانات المنتجات في كائن الأعمال الحد الأقصى البالغ %1 بايت. يُرجى تقليل كمية البيانات في حقل ملاحظة المنتج (لهذا المنتج أو لمنتجات أخرى في كائن الأعمال هذا) ثم محاولة حفظ معلومات المنتج مجددًا.</translation>
    </message>
    <message>
        <source>There are no products to paste.</source>
        <translation>لا توجد منتجات للصقها.</translation>
    </message>
    <message>
        <source>There is no product at position %1 of %2</source>
        <translation>لا يوجد منتج في الموضع %1 من %2</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>المجموع</translation>
    </message>
    <message>
        <source>Type mismatch</source>
        <translation>عدم تطابق النوع</translation>
    </message>
    <message>
        <source>Unit Price</source>
        <translation>سعر الوحدة</translation>
    </message>
    <message>
        <source>View</source>
        <translation>عرض</translation>
    </message>
    <message>
        <source>We apologize for the inconvenience but due to an internal application error the current dialog will be closed. If the issue persists please contact our support department at %1</source>
        <translation>نعتذر عن الإزعاج، ستُغلق النافذة الحالية بسبب خطأ داخلي في التطبيق. إذا استمرت المشكلة، يُرجى الاتصال بقسم الدعم لدينا على %1</translation>
    </message>
    <message>
        <source>Would you like to overwrite the current contents of the product note field with the contents from the product look-up?</source>
        <translation>هل تريد استبدال المحتوى الحالي لحقل ملاحظة المنتج بالمحتوى الوارد من البحث عن المنتج؟</translation>
    </message>
    <message>
        <source>&quot;%1&quot; does not fit 32 bits</source>
        <translation>القيمة «%1» لا تتسع في 32 بت</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number</source>
        <translation>القيمة «%1» ليست عددًا</translation>
    </message>
    <message>
        <source>a backslash stands before a character that needs none</source>
        <translation>توجد شرطة مائلة عكسية قبل محرف لا يحتاج إليها</translation>
    </message>
    <message>
        <source>a newer version of this program has made it</source>
        <translation>أنشأ الملفَ إصدارٌ أحدث من هذا البرنامج</translation>
    </message>
    <message>
        <source>a quote in line %1 is never closed</source>
        <translation>علامة اقتباس في السطر %1 غير مغلقة</translation>
    </message>
    <message>
        <source>a quote that is never closed</source>
        <translation>علامة اقتباس غير مغلقة</translation>
    </message>
    <message>
        <source>another program has locked it</source>
        <translation>قفل برنامج آخر الملف</translation>
    </message>
    <message>
        <source>another program is replacing it</source>
        <translation>يستبدل برنامج آخر الملف حاليًا</translation>
    </message>
    <message>
        <source>is not a number with the decimal separator &quot;%1&quot;</source>
        <translation>ليس عددًا بالفاصل العشري «%1»</translation>
    </message>
    <message>
        <source>is not a number</source>
        <translation>ليس عددًا</translation>
    </message>
    <message>
        <source>is too large</source>
        <translation>كبير جدًا</translation>
    </message>
    <message>
        <source>it cannot be locked</source>
        <translation>لا يمكن قفل الملف</translation>
    </message>
    <message>
        <source>it cannot be opened</source>
        <translation>لا يمكن فتح الملف</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>لا يمكن قراءة الملف</translation>
    </message>
    <message>
        <source>it does not begin with the names of its columns</source>
        <translation>لا يبدأ الملف بأسماء أعمدته</translation>
    </message>
    <message>
        <source>it holds no rows</source>
        <translation>لا يحتوي الملف على أي صفوف</translation>
    </message>
    <message>
        <source>it is a device</source>
        <translation>هذا جهاز وليس ملفًا</translation>
    </message>
    <message>
        <source>it is a folder</source>
        <translation>هذا مجلد وليس ملفًا</translation>
    </message>
    <message>
        <source>it is a link that leads nowhere</source>
        <translation>هذا رابط لا يؤدي إلى أي مكان</translation>
    </message>
    <message>
        <source>it is a pipe</source>
        <translation>هذا أنبوب (pipe) وليس ملفًا</translation>
    </message>
    <message>
        <source>it is a socket</source>
        <translation>هذا مقبس (socket) وليس ملفًا</translation>
    </message>
    <message>
        <source>it is damaged (%1)</source>
        <translation>الملف تالف (%1)</translation>
    </message>
    <message>
        <source>it is damaged</source>
        <translation>الملف تالف</translation>
    </message>
    <message>
        <source>it is in UTF-16; save it as UTF-8</source>
        <translation>الملف بترميز UTF-16؛ احفظه بترميز UTF-8</translation>
    </message>
    <message>
        <source>it is larger than %1 MiB</source>
        <translation>حجم الملف أكبر من %1 ميبيبايت</translation>
    </message>
    <message>
        <source>it is no catalogue file</source>
        <translation>هذا ليس ملف كتالوج</translation>
    </message>
    <message>
        <source>it is no file</source>
        <translation>هذا ليس ملفًا</translation>
    </message>
    <message>
        <source>item id</source>
        <translation>معرّف الصنف</translation>
    </message>
    <message>
        <source>its folder cannot be made</source>
        <translation>لا يمكن إنشاء المجلد اللازم</translation>
    </message>
    <message>
        <source>its lock file cannot be used: %1</source>
        <translation>لا يمكن استخدام ملف القفل: %1</translation>
    </message>
    <message>
        <source>key</source>
        <translation>المفتاح</translation>
    </message>
    <message>
        <source>line %1, column %2</source>
        <translation>السطر %1، العمود %2</translation>
    </message>
    <message>
        <source>name</source>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>neither a name nor a part number</source>
        <translation>لا يوجد اسم ولا رقم قطعة</translation>
    </message>
    <message>
        <source>no file is named</source>
        <translation>لم يُحدَّد أي ملف</translation>
    </message>
    <message>
        <source>note</source>
        <translation>الملاحظة</translation>
    </message>
    <message>
        <source>part number</source>
        <translation>رقم القطعة</translation>
    </message>
    <message>
        <source>something that is no file has the former one&apos;s name</source>
        <translation>شيء ليس ملفًا يحمل اسم الملف السابق</translation>
    </message>
    <message>
        <source>text behind a closing quote</source>
        <translation>نص بعد علامة اقتباس مغلقة</translation>
    </message>
    <message>
        <source>text that is not UTF-8</source>
        <translation>نص ليس بترميز UTF-8</translation>
    </message>
    <message>
        <source>the amount is beyond the range</source>
        <translation>المبلغ خارج النطاق</translation>
    </message>
    <message>
        <source>the count of products is beyond the range</source>
        <translation>عدد المنتجات خارج النطاق</translation>
    </message>
    <message>
        <source>the disk is full</source>
        <translation>القرص ممتلئ</translation>
    </message>
    <message>
        <source>the document could not be made</source>
        <translation>تعذّر إنشاء المستند</translation>
    </message>
    <message>
        <source>the item id &quot;%1&quot; is in an earlier row, too</source>
        <translation>معرّف الصنف «%1» موجود أيضًا في صف سابق</translation>
    </message>
    <message>
        <source>the record has more than 8 fields</source>
        <translation>في السجل أكثر من 8 حقول</translation>
    </message>
    <message>
        <source>the record has only %1 of 8 fields</source>
        <translation>في السجل %1 فقط من 8 حقول</translation>
    </message>
    <message>
        <source>the settings &quot;%1&quot; cannot be read: %2</source>
        <translation>لا يمكن قراءة الإعدادات «%1»: %2</translation>
    </message>
    <message>
        <source>the settings &quot;%1&quot; cannot be written: %2</source>
        <translation>لا يمكن كتابة الإعدادات «%1»: %2</translation>
    </message>
    <message>
        <source>the string does not begin with the count of products</source>
        <translation>لا تبدأ البيانات بعدد المنتجات</translation>
    </message>
    <message>
        <source>the string ends within the count of products</source>
        <translation>تنتهي البيانات ضمن عدد المنتجات</translation>
    </message>
    <message>
        <source>the string is cut short</source>
        <translation>البيانات مقطوعة</translation>
    </message>
    <message>
        <source>the unit price &quot;%1&quot; is no amount with a decimal comma</source>
        <translation>سعر الوحدة «%1» ليس مبلغًا بفاصلة عشرية</translation>
    </message>
    <message>
        <source>the unit price &quot;%1&quot; is no amount with a decimal point</source>
        <translation>سعر الوحدة «%1» ليس مبلغًا بنقطة عشرية</translation>
    </message>
    <message>
        <source>there is another file of this name</source>
        <translation>يوجد ملف آخر بهذا الاسم</translation>
    </message>
    <message>
        <source>there is more than the count of products announces</source>
        <translation>تحتوي البيانات على أكثر مما يحدده عدد المنتجات</translation>
    </message>
    <message>
        <source>there is no former one</source>
        <translation>لا يوجد ملف سابق</translation>
    </message>
    <message>
        <source>there is something else of this name</source>
        <translation>يوجد شيء آخر بهذا الاسم</translation>
    </message>
    <message>
        <source>this is not an amount in its shortest form</source>
        <translation>هذا ليس مبلغًا بأقصر صيغة له</translation>
    </message>
    <message>
        <source>unit price</source>
        <translation>سعر الوحدة</translation>
    </message>
    <message numerus="yes">
        <source>Add these %n products to the list?</source>
        <translation>
            <numerusform>هل تريد إضافة هذه المنتجات (%n) إلى القائمة؟</numerusform>
            <numerusform>هل تريد إضافة هذا المنتج إلى القائمة؟</numerusform>
            <numerusform>هل تريد إضافة هذين المنتجين إلى القائمة؟</numerusform>
            <numerusform>هل تريد إضافة هذه المنتجات (%n) إلى القائمة؟</numerusform>
            <numerusform>هل تريد إضافة هذه المنتجات (%n) إلى القائمة؟</numerusform>
            <numerusform>هل تريد إضافة هذه المنتجات (%n) إلى القائمة؟</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Are you sure you want to delete the %n selected products?</source>
        <translation>
            <numerusform>هل تريد بالتأكيد حذف المنتجات المحددة (%n)؟</numerusform>
            <numerusform>هل تريد بالتأكيد حذف المنتج المحدد؟</numerusform>
            <numerusform>هل تريد بالتأكيد حذف المنتجين المحددين؟</numerusform>
            <numerusform>هل تريد بالتأكيد حذف المنتجات المحددة (%n)؟</numerusform>
            <numerusform>هل تريد بالتأكيد حذف المنتجات المحددة (%n)؟</numerusform>
            <numerusform>هل تريد بالتأكيد حذف المنتجات المحددة (%n)؟</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 “%2”: %3</source>
        <translation>%1 «%2»: %3</translation>
    </message>
    <message>
        <source>Click to choose what this column shows</source>
        <translation>انقر لاختيار ما يعرضه هذا العمود</translation>
    </message>
    <message>
        <source>Fit to Texts</source>
        <translation>ملاءمة النصوص</translation>
    </message>
    <message>
        <source>Narrower</source>
        <translation>أضيق</translation>
    </message>
    <message>
        <source>No products yet. Press Insert or the + button to add one.</source>
        <translation>لا توجد منتجات بعد. اضغط Insert أو الزر + لإضافة منتج.</translation>
    </message>
    <message>
        <source>Product Column</source>
        <translation>عمود المنتج</translation>
    </message>
    <message>
        <source>Reset Columns</source>
        <translation>إعادة ضبط الأعمدة</translation>
    </message>
    <message>
        <source>Wider</source>
        <translation>أعرض</translation>
    </message>
    <message>
        <source>it has %1 columns, and at most %2 can be read</source>
        <translation>يحتوي الملف على %1 من الأعمدة، ولا يمكن قراءة أكثر من %2</translation>
    </message>
    <message>
        <source>it has no lines</source>
        <translation>الملف لا يحتوي على أسطر</translation>
    </message>
    <message>
        <source>its first line cannot be read</source>
        <translation>لا يمكن قراءة السطر الأول</translation>
    </message>
    <message>
        <source>no match</source>
        <translation>لا نتائج</translation>
    </message>
    <message>
        <source>no product can have this</source>
        <translation>لا يمكن لأي منتج أن يحمل هذه القيمة</translation>
    </message>
    <message>
        <source>the price of this quantity is too large</source>
        <translation>سعر هذه الكمية كبير جدًا</translation>
    </message>
    <message>
        <source>this is no amount with a decimal comma</source>
        <translation>هذا ليس مبلغًا بفاصل عشري هو الفاصلة</translation>
    </message>
    <message>
        <source>this is no amount with a decimal point</source>
        <translation>هذا ليس مبلغًا بفاصل عشري هو النقطة</translation>
    </message>
    <message numerus="yes">
        <source>%n match</source>
        <translation>
            <numerusform>لا نتائج</numerusform>
            <numerusform>نتيجة واحدة</numerusform>
            <numerusform>نتيجتان</numerusform>
            <numerusform>%n نتائج</numerusform>
            <numerusform>%n نتيجة</numerusform>
            <numerusform>%n نتيجة</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n or more match</source>
        <translation>
            <numerusform>%n نتيجة أو أكثر</numerusform>
            <numerusform>نتيجة واحدة أو أكثر</numerusform>
            <numerusform>نتيجتان أو أكثر</numerusform>
            <numerusform>%n نتائج أو أكثر</numerusform>
            <numerusform>%n نتيجة أو أكثر</numerusform>
            <numerusform>%n نتيجة أو أكثر</numerusform>
        </translation>
    </message>
    <message>
        <source>Products</source>
        <translation>المنتجات</translation>
    </message>
    <message>
        <source>%1 fields where the header has %2</source>
        <translation>%1 من الحقول، بينما في سطر العناوين %2</translation>
    </message>
    <message>
        <source>%1; %2</source>
        <translation>%1؛ %2</translation>
    </message>
    <message>
        <source>%1; line %2 has %3</source>
        <translation>%1؛ السطر %2 فيه %3</translation>
    </message>
    <message>
        <source>a cell refers to text %1 of %2</source>
        <translation>خلية تشير إلى النص %1 من %2</translation>
    </message>
    <message>
        <source>a cell stands in no row</source>
        <translation>خلية ليست في أي صف</translation>
    </message>
    <message>
        <source>a tag in its part &quot;%1&quot; is too long</source>
        <translation>وسم في جزئه «%1» أطول من اللازم</translation>
    </message>
    <message>
        <source>a temporary file in &quot;%1&quot; cannot be used</source>
        <translation>لا يمكن استخدام ملف مؤقت في «%1»</translation>
    </message>
    <message>
        <source>barcode</source>
        <translation>الباركود</translation>
    </message>
    <message>
        <source>it has more than %1 columns</source>
        <translation>فيه أكثر من %1 عمود</translation>
    </message>
    <message>
        <source>it has no sheet &quot;%1&quot;; its sheets are %2</source>
        <translation>ليس فيه ورقة «%1»؛ أوراقه هي %2</translation>
    </message>
    <message>
        <source>it has no sheet</source>
        <translation>ليس فيه أي ورقة</translation>
    </message>
    <message>
        <source>it is a PDF file; ask for the list as .xlsx or CSV</source>
        <translation>إنه ملف PDF؛ اطلب القائمة بصيغة ‎.xlsx أو CSV</translation>
    </message>
    <message>
        <source>it is a ZIP file that is damaged or incomplete (%1)</source>
        <translation>إنه ملف ZIP تالف أو ناقص (%1)</translation>
    </message>
    <message>
        <source>it is a ZIP file, but no workbook (.xlsx)</source>
        <translation>إنه ملف ZIP، لكنه ليس مصنفًا (‎.xlsx)</translation>
    </message>
    <message>
        <source>it is a row of totals</source>
        <translation>إنه صف مجاميع</translation>
    </message>
    <message>
        <source>it is a web page or XML; open it in a spreadsheet and save it as .xlsx or CSV</source>
        <translation>إنه صفحة ويب أو XML؛ افتحه في برنامج جداول واحفظه بصيغة ‎.xlsx أو CSV</translation>
    </message>
    <message>
        <source>it is a workbook of an older form, or one with a password; save it as .xlsx or CSV</source>
        <translation>إنه مصنف بصيغة أقدم أو محمي بكلمة مرور؛ احفظه بصيغة ‎.xlsx أو CSV</translation>
    </message>
    <message>
        <source>it is no workbook (.xlsx); save it as .xlsx or CSV</source>
        <translation>إنه ليس مصنفًا (‎.xlsx)؛ احفظه بصيغة ‎.xlsx أو CSV</translation>
    </message>
    <message>
        <source>it repeats the names of the columns</source>
        <translation>إنه يكرر أسماء الأعمدة</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; cannot be unpacked (%2)</source>
        <translation>لا يمكن فك ضغط جزئه «%1» (%2)</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; declares a document type, as no workbook does</source>
        <translation>جزؤه «%1» يصرّح بنوع مستند، ولا يفعل ذلك أي مصنف</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; is damaged (%2)</source>
        <translation>جزؤه «%1» تالف (%2)</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; is missing</source>
        <translation>جزؤه «%1» مفقود</translation>
    </message>
    <message>
        <source>its part &quot;%1&quot; unpacks to more than %2 times its size</source>
        <translation>جزؤه «%1» يكبر عند فك الضغط أكثر من %2 مرة</translation>
    </message>
    <message>
        <source>its row &quot;%1&quot; comes after row %2</source>
        <translation>صفه «%1» يأتي بعد الصف %2</translation>
    </message>
    <message>
        <source>its sheet &quot;%1&quot; is missing</source>
        <translation>ورقته «%1» مفقودة</translation>
    </message>
    <message>
        <source>its texts are too large to be kept in memory; save the list as CSV</source>
        <translation>نصوصه أكبر من أن تُحفظ في الذاكرة؛ احفظ القائمة بصيغة CSV</translation>
    </message>
    <message>
        <source>line %1 has no names of columns</source>
        <translation>السطر %1 ليس فيه أسماء أعمدة</translation>
    </message>
    <message>
        <source>line %1 of its part &quot;%2&quot; is no XML (%3)</source>
        <translation>السطر %1 من جزئه «%2» ليس XML (%3)</translation>
    </message>
    <message>
        <source>no column for the %1 (named: %2)</source>
        <translation>لا عمود لـ %1 (المسمّى: %2)</translation>
    </message>
    <message>
        <source>no column for the %1 (usual names: %2)</source>
        <translation>لا عمود لـ %1 (الأسماء المعتادة: %2)</translation>
    </message>
    <message>
        <source>nothing stands in it</source>
        <translation>لا شيء فيه</translation>
    </message>
    <message>
        <source>one of its texts has more than a megabyte</source>
        <translation>أحد نصوصه أكبر من ميغابايت</translation>
    </message>
    <message>
        <source>row %1 has a cell with the wrong place &quot;%2&quot;</source>
        <translation>الصف %1 فيه خلية بموضع خاطئ «%2»</translation>
    </message>
    <message>
        <source>row %1 has more than a megabyte</source>
        <translation>الصف %1 أكبر من ميغابايت</translation>
    </message>
    <message>
        <source>text that is not %1</source>
        <translation>نص ليس بترميز %1</translation>
    </message>
    <message>
        <source>the barcode &quot;%1&quot; has lost its last digits in a spreadsheet</source>
        <translation>الباركود «%1» فقد أرقامه الأخيرة في برنامج جداول</translation>
    </message>
    <message>
        <source>the elements of its part &quot;%1&quot; are nested too deeply</source>
        <translation>عناصر جزئه «%1» متداخلة بعمق زائد</translation>
    </message>
    <message>
        <source>the folder for temporary files, &quot;%1&quot;, is full</source>
        <translation>مجلد الملفات المؤقتة «%1» ممتلئ</translation>
    </message>
    <message>
        <source>the unit price &quot;%1&quot; is negative</source>
        <translation>سعر الوحدة «%1» سالب</translation>
    </message>
    <message>
        <source>there is no encoding &quot;%1&quot;</source>
        <translation>لا يوجد ترميز «%1»</translation>
    </message>
    <message>
        <source>workbooks cannot be read, because a part of this program is missing (%1); save the list as CSV</source>
        <translation>لا يمكن قراءة المصنفات لأن جزءًا من هذا البرنامج مفقود (%1)؛ احفظ القائمة بصيغة CSV</translation>
    </message>
    <message>
        <source>%1. The connection ended with the import, so the list may be imported or not; import it again to be sure</source>
        <translation>%1. انقطع الاتصال أثناء الاستيراد، فربما استُوردت القائمة وربما لم تُستورد؛ استوردها مرة أخرى للتأكد</translation>
    </message>
    <message>
        <source>%1: it cannot be written</source>
        <translation>%1: لا يمكن الكتابة فيه</translation>
    </message>
    <message>
        <source>The products of %1 are being copied; until that is done, none is found.</source>
        <translation>يجري نسخ منتجات %1؛ ولن يُعثر على أي منتج حتى ينتهي ذلك.</translation>
    </message>
    <message>
        <source>The products of %1 cannot be copied: %2.</source>
        <translation>لا يمكن نسخ منتجات %1: %2.</translation>
    </message>
    <message>
        <source>a newer version of this program has set it up</source>
        <translation>أعدّه إصدار أحدث من هذا البرنامج</translation>
    </message>
    <message>
        <source>a port must be a number; percent-encode the characters : / @ in names and passwords</source>
        <translation>يجب أن يكون المنفذ رقمًا؛ اكتب الأحرف : / @ في الأسماء وكلمات المرور بترميز النسبة المئوية</translation>
    </message>
    <message>
        <source>a server cannot be used, because a part of this program is missing (%1)</source>
        <translation>لا يمكن استخدام خادم لأن جزءًا من هذا البرنامج مفقود (%1)</translation>
    </message>
    <message>
        <source>printers cannot be used, because a part of this program is missing (%1); export the quote as PDF</source>
        <translation>لا يمكن استخدام الطابعات لأن جزءًا من هذا البرنامج مفقود (%1)؛ صدّر عرض السعر بصيغة PDF</translation>
    </message>
    <message>
        <source>a text has a character 0, which the server cannot keep</source>
        <translation>نص فيه الحرف 0 الذي لا يستطيع الخادم حفظه</translation>
    </message>
    <message>
        <source>an address in brackets must end with ]</source>
        <translation>يجب أن ينتهي العنوان بين قوسين بالرمز ]</translation>
    </message>
    <message>
        <source>behind the ?, options have the form name=value and stand between &amp;</source>
        <translation>بعد ? تكون الخيارات على صورة اسم=قيمة ويُفصل بينها بالرمز &amp;</translation>
    </message>
    <message>
        <source>it does not begin with postgresql://</source>
        <translation>لا يبدأ بـ postgresql://</translation>
    </message>
    <message>
        <source>it has a character 0</source>
        <translation>فيه الحرف 0</translation>
    </message>
    <message>
        <source>it was cancelled</source>
        <translation>أُلغي</translation>
    </message>
    <message>
        <source>its catalogue is damaged (%1)</source>
        <translation>كتالوجه تالف (%1)</translation>
    </message>
    <message>
        <source>the address of the server is wrong: %1</source>
        <translation>عنوان الخادم خاطئ: %1</translation>
    </message>
    <message>
        <source>the catalogue was exchanged while it was copied</source>
        <translation>استُبدل الكتالوج أثناء نسخه</translation>
    </message>
    <message>
        <source>the database has the encoding %1, but a catalogue needs %2</source>
        <translation>ترميز قاعدة البيانات %1، لكن الكتالوج يحتاج إلى %2</translation>
    </message>
    <message>
        <source>the server does not answer</source>
        <translation>الخادم لا يجيب</translation>
    </message>
    <message>
        <source>the user may not change the catalogue, and needs the role %1</source>
        <translation>لا يحق للمستخدم تغيير الكتالوج، ويحتاج إلى الدور %1</translation>
    </message>
    <message>
        <source>the user may not read the catalogue, and needs the role %1</source>
        <translation>لا يحق للمستخدم قراءة الكتالوج، ويحتاج إلى الدور %1</translation>
    </message>
    <message>
        <source>there is no connection</source>
        <translation>لا يوجد اتصال</translation>
    </message>
    <message>
        <source>there is no folder for the user&apos;s data</source>
        <translation>لا يوجد مجلد لبيانات المستخدم</translation>
    </message>
    <message>
        <source>this database has no catalogue; orvan-catalogue setup-server makes one</source>
        <translation>ليس في قاعدة البيانات هذه كتالوج؛ ينشئه الأمر orvan-catalogue setup-server</translation>
    </message>
    <message>
        <source>two hexadecimal digits must follow each percent sign</source>
        <translation>يجب أن يتبع كل علامة نسبة مئوية رقمان ست عشريان</translation>
    </message>
    <message>
        <source>a row stands within row %1</source>
        <translation>صف موجود داخل الصف %1</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>إغلاق (&amp;غ)</translation>
    </message>
    <message>
        <source>No products.</source>
        <translation>لا توجد منتجات.</translation>
    </message>
    <message>
        <source>Product Information (Read Only)</source>
        <translation>معلومات المنتج (للقراءة فقط)</translation>
    </message>
    <message>
        <source>The products hold bytes that are no text (UTF-8).</source>
        <translation>تحتوي المنتجات على بايتات ليست نصًا (UTF-8).</translation>
    </message>
    <message>
        <source>The products hold half a character, which is no text.</source>
        <translation>تحتوي المنتجات على نصف حرف، وهو ليس نصًا.</translation>
    </message>
    <message>
        <source>View Product</source>
        <translation>عرض المنتج</translation>
    </message>
    <message>
        <source>The folder &quot;%1&quot; cannot be made.</source>
        <translation>لا يمكن إنشاء المجلد &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>The recording has ended, because &quot;%1&quot; cannot be written: %2.</source>
        <translation>انتهى التسجيل لأن الكتابة في &quot;%1&quot; غير ممكنة: %2.</translation>
    </message>
    <message>
        <source>You have no home folder.</source>
        <translation>ليس لديك مجلد رئيسي.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::CatalogueMenu</name>
    <message>
        <source>1 product</source>
        <translation>منتج واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln products</source>
        <translation>
            <numerusform>%Ln منتج</numerusform>
            <numerusform>منتج واحد</numerusform>
            <numerusform>منتجين</numerusform>
            <numerusform>%Ln منتجات</numerusform>
            <numerusform>%Ln منتجًا</numerusform>
            <numerusform>%Ln منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 from “%2”</source>
        <translation>%1 من «%2»</translation>
    </message>
    <message>
        <source>products that cannot be read</source>
        <translation>منتجات لا يمكن قراءتها</translation>
    </message>
    <message>
        <source>sample products</source>
        <translation>المنتجات التجريبية</translation>
    </message>
    <message>
        <source>Ca&amp;talogue</source>
        <translation>الكتالوج (&amp;ك)</translation>
    </message>
    <message>
        <source>&amp;Import Price List…</source>
        <translation>استيراد قائمة أسعار (&amp;س)…</translation>
    </message>
    <message>
        <source>Use the &amp;Sample Products</source>
        <translation>استخدام المنتجات التجريبية (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;Bring Back the Former Catalogue</source>
        <translation>استرجاع الكتالوج السابق (&amp;ب)</translation>
    </message>
    <message>
        <source>The catalogue contains %1.

%2

The present catalogue is kept: “Bring Back the Former Catalogue” in the same menu brings it back.</source>
        <translation>يحتوي الكتالوج على %1.

%2

سيُحتفظ بالكتالوج الحالي: يعيده الأمر «استرجاع الكتالوج السابق» في القائمة نفسها.</translation>
    </message>
    <message>
        <source>

The former catalogue that has been kept so far is deleted: %1.</source>
        <translation>

سيُحذف الكتالوج السابق المحتفظ به حتى الآن، ويحتوي على %1.</translation>
    </message>
    <message>
        <source>&amp;Replace</source>
        <translation>استبدال (&amp;س)</translation>
    </message>
    <message>
        <source>Replace it with the sample products?</source>
        <translation>هل تريد استبداله بالمنتجات التجريبية؟</translation>
    </message>
    <message>
        <source>The catalogue now contains the sample products.</source>
        <translation>يحتوي الكتالوج الآن على المنتجات التجريبية.</translation>
    </message>
    <message>
        <source>The catalogue now contains %1.

The same command brings the other one back.</source>
        <translation>يحتوي الكتالوج الآن على %1.

الأمر نفسه يعيد الكتالوج الآخر.</translation>
    </message>
    <message>
        <source>The former catalogue could not be brought back.</source>
        <translation>تعذّر استرجاع الكتالوج السابق.</translation>
    </message>
    <message>
        <source>The sample products could not be imported into the catalogue.</source>
        <translation>تعذّر استيراد المنتجات التجريبية إلى الكتالوج.</translation>
    </message>
    <message>
        <source>Import Price List</source>
        <translation>استيراد قائمة أسعار</translation>
    </message>
    <message>
        <source>Replace it with the products of “%1”?</source>
        <translation>هل تريد استبداله بمنتجات «%1»؟</translation>
    </message>
    <message>
        <source>“%1” could not be imported.</source>
        <translation>تعذّر استيراد «%1».</translation>
    </message>
    <message>
        <source>The catalogue now contains %1.</source>
        <translation>يحتوي الكتالوج الآن على %1.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>إلغاء</translation>
    </message>
    <message>
        <source>Reading “%1”…</source>
        <translation>تجري قراءة «%1»…</translation>
    </message>
    <message numerus="yes">
        <source>Sorting %Ln products…</source>
        <translation>
            <numerusform>يجري فرز %Ln منتج…</numerusform>
            <numerusform>يجري فرز منتج واحد…</numerusform>
            <numerusform>يجري فرز منتجين…</numerusform>
            <numerusform>يجري فرز %Ln منتجات…</numerusform>
            <numerusform>يجري فرز %Ln منتجًا…</numerusform>
            <numerusform>يجري فرز %Ln منتج…</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Reading “%1”: %Ln products</source>
        <translation>
            <numerusform>تجري قراءة «%1»: %Ln منتج</numerusform>
            <numerusform>تجري قراءة «%1»: منتج واحد</numerusform>
            <numerusform>تجري قراءة «%1»: منتجان</numerusform>
            <numerusform>تجري قراءة «%1»: %Ln منتجات</numerusform>
            <numerusform>تجري قراءة «%1»: %Ln منتجًا</numerusform>
            <numerusform>تجري قراءة «%1»: %Ln منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>Line %1: %2</source>
        <translation>السطر %1: %2</translation>
    </message>
    <message numerus="yes">
        <source>… and %n more</source>
        <translation>
            <numerusform>… و%n أخرى</numerusform>
            <numerusform>… وسطر آخر</numerusform>
            <numerusform>… وسطران آخران</numerusform>
            <numerusform>… و%n أسطر أخرى</numerusform>
            <numerusform>… و%n سطرًا آخر</numerusform>
            <numerusform>… و%n سطر آخر</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” was not imported: one row has an error.</source>
        <translation>لم يُستورد «%1»: يوجد خطأ في صف واحد.</translation>
    </message>
    <message numerus="yes">
        <source>“%1” was not imported: %n rows have errors.</source>
        <translation>
            <numerusform>لم يُستورد «%1»: توجد أخطاء في %n صف.</numerusform>
            <numerusform>لم يُستورد «%1»: يوجد خطأ في صف واحد.</numerusform>
            <numerusform>لم يُستورد «%1»: توجد أخطاء في صفين.</numerusform>
            <numerusform>لم يُستورد «%1»: توجد أخطاء في %n صفوف.</numerusform>
            <numerusform>لم يُستورد «%1»: توجد أخطاء في %n صفًا.</numerusform>
            <numerusform>لم يُستورد «%1»: توجد أخطاء في %n صف.</numerusform>
        </translation>
    </message>
    <message>
        <source>

The catalogue was not changed.</source>
        <translation>

لم يتغير الكتالوج.</translation>
    </message>
    <message>
        <source>Price lists (*.csv *.tsv *.txt *.xlsx);;All files (*)</source>
        <translation>قوائم الأسعار (*.csv *.tsv *.txt *.xlsx);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>%1 without a price.</source>
        <translation>%1 بلا سعر.</translation>
    </message>
    <message>
        <source>1 row with errors was left out.</source>
        <translation>تُجوهل صف واحد به أخطاء.</translation>
    </message>
    <message numerus="yes">
        <source>%Ln rows with errors were left out.</source>
        <translation>
            <numerusform>تُجوهل %Ln صف به أخطاء.</numerusform>
            <numerusform>تُجوهل %Ln صف به أخطاء.</numerusform>
            <numerusform>تُجوهل صفّان بهما أخطاء (%Ln).</numerusform>
            <numerusform>تُجوهلت %Ln صفوف بها أخطاء.</numerusform>
            <numerusform>تُجوهل %Ln صفًا به أخطاء.</numerusform>
            <numerusform>تُجوهل %Ln صف به أخطاء.</numerusform>
        </translation>
    </message>
    <message>
        <source>The administrator has set the catalogue for all users of this computer.</source>
        <translation>حدَّد مسؤول النظام الكتالوج لجميع مستخدمي هذا الحاسوب.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::CopyWatch</name>
    <message>
        <source>of an unknown time</source>
        <translation>من وقت غير معروف</translation>
    </message>
    <message>
        <source>up to date</source>
        <translation>محدّث</translation>
    </message>
    <message>
        <source>as of %1</source>
        <translation>بتاريخ %1</translation>
    </message>
    <message>
        <source>“%1”: %2</source>
        <translation>«%1»: %2</translation>
    </message>
    <message>
        <source>Others could read a password here. Keep it in the file ~/.pgpass or in a service file, and leave it out of the address.</source>
        <translation>قد يقرأ آخرون كلمة المرور هنا. احفظها في الملف ‎~/.pgpass أو في ملف خدمة، واتركها خارج العنوان.</translation>
    </message>
    <message>
        <source>No products of %1 yet: %2</source>
        <translation>لا منتجات من %1 بعد: %2</translation>
    </message>
    <message>
        <source>Copying the products of %1: %L2 %</source>
        <translation>يجري نسخ منتجات %1: ‏%L2 %</translation>
    </message>
    <message>
        <source>Asking %1 for its products</source>
        <translation>يجري سؤال %1 عن منتجاته</translation>
    </message>
    <message>
        <source>%1, %2</source>
        <translation>%1، %2</translation>
    </message>
    <message>
        <source>%1. No changes come: %2</source>
        <translation>%1. لا تصل تغييرات: %2</translation>
    </message>
    <message>
        <source>%1. Copying anew: %L2 %</source>
        <translation>%1. يجري النسخ من جديد: ‏%L2 %</translation>
    </message>
</context>
<context>
    <name>orvan::desk::CurrencyDialog</name>
    <message>
        <source>Quote Currency</source>
        <translation>عملة عرض السعر</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>الرمز</translation>
    </message>
    <message>
        <source>Currency</source>
        <translation>العملة</translation>
    </message>
    <message>
        <source>Find a currency by its code or name</source>
        <translation>ابحث عن عملة برمزها أو اسمها</translation>
    </message>
    <message>
        <source>The amounts stay as they are: nothing is converted.</source>
        <translation>تبقى المبالغ كما هي: لا يُحوَّل شيء.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::ExchangeActions</name>
    <message>
        <source>The quote would be too large to be saved: %L1 bytes, and at most %L2 are possible.</source>
        <translation>سيكون عرض السعر أكبر من أن يُحفظ: %L1 بايت، والحد الأقصى الممكن هو %L2.</translation>
    </message>
    <message>
        <source>The total would be too large.</source>
        <translation>سيكون المجموع كبيرًا جدًا.</translation>
    </message>
    <message>
        <source>Export Lines</source>
        <translation>تصدير الأسطر</translation>
    </message>
    <message>
        <source>&amp;Choose File…</source>
        <translation>اختيار ملف (&amp;خ)…</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>الفاصل (&amp;ف)</translation>
    </message>
    <message>
        <source>&amp;Decimals</source>
        <translation>الكسور العشرية (&amp;ع)</translation>
    </message>
    <message>
        <source>&amp;Import Lines…</source>
        <translation>استيراد الأسطر (&amp;س)…</translation>
    </message>
    <message>
        <source>E&amp;xport Lines…</source>
        <translation>تصدير الأسطر (&amp;ي)…</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>الأسطر</translation>
    </message>
    <message>
        <source>Lines for a spreadsheet (*.%1);;All files (*)</source>
        <translation>أسطر لجدول بيانات (*.%1);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>“%1” has been written.</source>
        <translation>كُتب الملف «%1».</translation>
    </message>
    <message>
        <source>“%1” could not be written.</source>
        <translation>تعذّرت كتابة «%1».</translation>
    </message>
    <message>
        <source>Import Lines</source>
        <translation>استيراد الأسطر</translation>
    </message>
    <message>
        <source>Lines of a spreadsheet (*.csv *.tsv *.txt);;All files (*)</source>
        <translation>أسطر جدول بيانات (*.csv *.tsv *.txt);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>“%1” could not be imported.</source>
        <translation>تعذّر استيراد «%1».</translation>
    </message>
    <message>
        <source>Import 1 Line</source>
        <translation>استيراد سطر واحد</translation>
    </message>
    <message numerus="yes">
        <source>Import %Ln Lines</source>
        <translation>
            <numerusform>استيراد %Ln سطر</numerusform>
            <numerusform>استيراد سطر واحد</numerusform>
            <numerusform>استيراد سطرين</numerusform>
            <numerusform>استيراد %Ln أسطر</numerusform>
            <numerusform>استيراد %Ln سطرًا</numerusform>
            <numerusform>استيراد %Ln سطر</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>orvan::desk::ExplainDialog</name>
    <message>
        <source>too large for an amount</source>
        <translation>أكبر من أن يكون مبلغًا</translation>
    </message>
    <message>
        <source>exact</source>
        <translation>دقيق</translation>
    </message>
    <message>
        <source>rounded in binary arithmetic</source>
        <translation>مقرّب في الحساب الثنائي</translation>
    </message>
    <message>
        <source>Price of product %1: %2</source>
        <translation>سعر المنتج %1: %2</translation>
    </message>
    <message>
        <source>Percent to pay: a discount of %1% counts as none</source>
        <translation>النسبة المستحقة: خصم %1% لا يُحتسب</translation>
    </message>
    <message>
        <source>Percent to pay: 100% − %1%</source>
        <translation>النسبة المستحقة: ‎100% − %1%</translation>
    </message>
    <message>
        <source>Quantity × unit price: %1 × %2</source>
        <translation>الكمية × سعر الوحدة: ‎%1 × %2</translation>
    </message>
    <message>
        <source>%1% of %2</source>
        <translation>%1% من %2</translation>
    </message>
    <message>
        <source>Price</source>
        <translation>السعر</translation>
    </message>
    <message>
        <source>shown as %1</source>
        <translation>يُعرض %1</translation>
    </message>
    <message>
        <source>Total</source>
        <translation>الإجمالي</translation>
    </message>
    <message>
        <source>Product %1</source>
        <translation>المنتج %1</translation>
    </message>
    <message>
        <source>rounded to be shown: %1</source>
        <translation>مقرّب للعرض: ‎%1</translation>
    </message>
    <message>
        <source>Further products: %L1</source>
        <translation>منتجات أخرى: %L1</translation>
    </message>
    <message>
        <source>Sum of all prices</source>
        <translation>مجموع كل الأسعار</translation>
    </message>
    <message>
        <source>the prices as they are shown, added up</source>
        <translation>مجموع الأسعار كما تُعرض</translation>
    </message>
    <message>
        <source>the exact sum, rounded to be shown</source>
        <translation>المجموع الدقيق، مقرّب للعرض</translation>
    </message>
    <message>
        <source>not the sum of the prices</source>
        <translation>ليس مجموع الأسعار</translation>
    </message>
    <message>
        <source>The prices add up to %1, which is too large for an amount, so there is no total.</source>
        <translation>مجموع الأسعار %1، وهو أكبر من أن يكون مبلغًا، لذلك لا يوجد إجمالي.</translation>
    </message>
    <message>
        <source>The prices as they are shown add up to the total as it is shown.</source>
        <translation>مجموع الأسعار كما تُعرض يساوي الإجمالي كما يُعرض.</translation>
    </message>
    <message>
        <source>The prices as they are shown add up to %1, but the total is shown as %2. Each amount is rounded for itself to be shown; the total is the sum of the exact prices.</source>
        <translation>مجموع الأسعار كما تُعرض %1، لكن الإجمالي يُعرض %2. يُقرَّب كل مبلغ على حدة للعرض، أما الإجمالي فهو مجموع الأسعار الدقيقة.</translation>
    </message>
    <message>
        <source>The price of product %1 is %2, but its quantity, unit price and discount give %3. It was stored like this; changing one of them in the editor computes it anew.</source>
        <translation>سعر المنتج %1 هو %2، لكن الكمية وسعر الوحدة والخصم تعطي %3. هكذا حُفظ؛ وتغيير أحدها في المحرر يعيد حسابه.</translation>
    </message>
    <message>
        <source>Products whose price is not what their quantity, unit price and discount give: %1.</source>
        <translation>منتجات لا يساوي سعرها ما تعطيه الكمية وسعر الوحدة والخصم: %1.</translation>
    </message>
    <message>
        <source>Products whose price is 0 because it is too large for an amount: %1.</source>
        <translation>منتجات سعرها 0 لأنه أكبر من أن يكون مبلغًا: %1.</translation>
    </message>
    <message>
        <source>Explain</source>
        <translation>شرح</translation>
    </message>
    <message>
        <source>Step</source>
        <translation>الخطوة</translation>
    </message>
    <message>
        <source>Exact value</source>
        <translation>القيمة الدقيقة</translation>
    </message>
    <message>
        <source>Amount</source>
        <translation>المبلغ</translation>
    </message>
    <message>
        <source>How</source>
        <translation>الطريقة</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;نسخ</translation>
    </message>
    <message>
        <source>rounded, a half to the even digit</source>
        <translation>مقرّب، والنصف إلى الرقم الزوجي</translation>
    </message>
</context>
<context>
    <name>orvan::desk::ImportDialog</name>
    <message>
        <source>1 line</source>
        <translation>سطر واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln lines</source>
        <translation>
            <numerusform>%Ln سطر</numerusform>
            <numerusform>سطر واحد</numerusform>
            <numerusform>سطران</numerusform>
            <numerusform>%Ln أسطر</numerusform>
            <numerusform>%Ln سطرًا</numerusform>
            <numerusform>%Ln سطر</numerusform>
        </translation>
    </message>
    <message>
        <source>Line %L1: %2</source>
        <translation>السطر %L1: %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>و%1 أخرى</translation>
    </message>
    <message>
        <source>&amp;Append to the quote&apos;s lines</source>
        <translation>إلحاق بأسطر عرض السعر (&amp;ل)</translation>
    </message>
    <message>
        <source>&amp;Replace the quote&apos;s lines</source>
        <translation>استبدال أسطر عرض السعر (&amp;ب)</translation>
    </message>
    <message>
        <source>Import Lines from “%1”</source>
        <translation>استيراد الأسطر من «%1»</translation>
    </message>
    <message>
        <source>What was understood of the file</source>
        <translation>ما فُهم من الملف</translation>
    </message>
    <message>
        <source>Lines that cannot be imported</source>
        <translation>الأسطر التي لا يمكن استيرادها</translation>
    </message>
    <message>
        <source>The &amp;first line has the names of the columns</source>
        <translation>السطر الأول يحتوي على أسماء الأعمدة (&amp;أ)</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>الفاصل (&amp;ف)</translation>
    </message>
    <message>
        <source>&amp;Decimals</source>
        <translation>الكسور العشرية (&amp;ع)</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>السطر</translation>
    </message>
    <message>
        <source>Column %L1</source>
        <translation>العمود %L1</translation>
    </message>
    <message>
        <source>%L1 !</source>
        <translation>%L1 !</translation>
    </message>
    <message>
        <source>(not imported)</source>
        <translation>(لا يُستورد)</translation>
    </message>
    <message>
        <source>What column %L1 has</source>
        <translation>ما يحتويه العمود %L1</translation>
    </message>
    <message>
        <source>Choose above what the columns have.</source>
        <translation>اختر أعلاه ما تحتويه الأعمدة.</translation>
    </message>
    <message>
        <source>Nothing can be imported, because %1 cannot be understood.</source>
        <translation>لا يمكن استيراد شيء، لأن ما يلي غير مفهوم: %1.</translation>
    </message>
    <message>
        <source>The file has no lines to import.</source>
        <translation>لا يحتوي الملف على أسطر يمكن استيرادها.</translation>
    </message>
    <message>
        <source>%1 understood.</source>
        <translation>فُهم: %1.</translation>
    </message>
    <message>
        <source>&amp;Import 1 Line</source>
        <translation>استيراد سطر واحد (&amp;س)</translation>
    </message>
    <message numerus="yes">
        <source>&amp;Import %Ln Lines</source>
        <translation>
            <numerusform>استيراد %Ln سطر (&amp;س)</numerusform>
            <numerusform>استيراد سطر واحد (&amp;س)</numerusform>
            <numerusform>استيراد سطرين (&amp;س)</numerusform>
            <numerusform>استيراد %Ln أسطر (&amp;س)</numerusform>
            <numerusform>استيراد %Ln سطرًا (&amp;س)</numerusform>
            <numerusform>استيراد %Ln سطر (&amp;س)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>orvan::desk::KeySheet</name>
    <message>
        <source>In the list</source>
        <translation>في القائمة</translation>
    </message>
    <message>
        <source>In the editor</source>
        <translation>في المحرر</translation>
    </message>
    <message>
        <source>In the desk</source>
        <translation>في النافذة</translation>
    </message>
    <message>
        <source>Keys</source>
        <translation>المفاتيح</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>الأمر</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>المفتاح</translation>
    </message>
    <message>
        <source>Menu</source>
        <translation>القائمة</translation>
    </message>
    <message>
        <source> or </source>
        <translation> أو </translation>
    </message>
    <message>
        <source>Find a command or a key</source>
        <translation>ابحث عن أمر أو مفتاح</translation>
    </message>
</context>
<context>
    <name>orvan::desk::LetterheadDialog</name>
    <message>
        <source>Print &amp;tax of</source>
        <translation>طباعة ضريبة بنسبة (&amp;ط)</translation>
    </message>
    <message>
        <source>Letterhead and Columns</source>
        <translation>الترويسة والأعمدة</translation>
    </message>
    <message>
        <source>&amp;Seller</source>
        <translation>البائع (&amp;ب)</translation>
    </message>
    <message>
        <source>&amp;Address</source>
        <translation>العنوان (&amp;ع)</translation>
    </message>
    <message>
        <source>&amp;Logo</source>
        <translation>الشعار (&amp;ش)</translation>
    </message>
    <message>
        <source>&amp;Closing text</source>
        <translation>النص الختامي (&amp;خ)</translation>
    </message>
    <message>
        <source>Columns</source>
        <translation>الأعمدة</translation>
    </message>
    <message>
        <source>Tax</source>
        <translation>الضريبة</translation>
    </message>
    <message>
        <source>C&amp;hoose…</source>
        <translation>اختيار (&amp;ت)…</translation>
    </message>
    <message>
        <source>&amp;Position</source>
        <translation>الموضع (&amp;ض)</translation>
    </message>
    <message>
        <source>Part nu&amp;mber</source>
        <translation>&amp;رقم القطعة</translation>
    </message>
    <message>
        <source>&amp;Note</source>
        <translation>ملاحظة (&amp;م)</translation>
    </message>
    <message>
        <source>&amp;Quantity</source>
        <translation>الكمية (&amp;ك)</translation>
    </message>
    <message>
        <source>&amp;Unit price</source>
        <translation>سعر الوحدة (&amp;س)</translation>
    </message>
    <message>
        <source>&amp;Discount</source>
        <translation>الخصم (&amp;ص)</translation>
    </message>
    <message>
        <source>&amp;Extended price</source>
        <translation>السعر الإجمالي (&amp;ج)</translation>
    </message>
    <message>
        <source>Choose Logo</source>
        <translation>اختيار الشعار</translation>
    </message>
    <message>
        <source>Pictures (%1);;All files (*)</source>
        <translation>الصور (%1);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>This picture cannot be printed: %1.</source>
        <translation>لا يمكن طباعة هذه الصورة: %1.</translation>
    </message>
    <message>
        <source>“%1” is not a rate: 0 to 100 percent, with at most four decimals.</source>
        <translation>القيمة «%1» ليست معدل ضريبة: من 0 إلى 100 بالمئة، بأربع منازل عشرية على الأكثر.</translation>
    </message>
    <message>
        <source>This is set for all users of this computer.</source>
        <translation>هذا محدَّد لجميع مستخدمي هذا الحاسوب.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::MainWindow</name>
    <message>
        <source>Customer</source>
        <translation>تغيير العميل</translation>
    </message>
    <message>
        <source>Quote Number</source>
        <translation>تغيير رقم عرض السعر</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>تغيير التاريخ</translation>
    </message>
    <message>
        <source>This could not be undone.</source>
        <translation>تعذّر التراجع عن هذا.</translation>
    </message>
    <message>
        <source>Who is this quote for?</source>
        <translation>لمن عرض السعر هذا؟</translation>
    </message>
    <message>
        <source>&amp;Customer</source>
        <translation>العميل (&amp;ل)</translation>
    </message>
    <message>
        <source>Quote &amp;number</source>
        <translation>رقم عرض السعر (&amp;س)</translation>
    </message>
    <message>
        <source>&amp;Date</source>
        <translation>التاريخ (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ملف (&amp;م)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>جديد (&amp;ج)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>فتح (&amp;ف)…</translation>
    </message>
    <message>
        <source>Open Sa&amp;mple</source>
        <translation>فتح عر&amp;ض تجريبي</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>حفظ (&amp;ح)</translation>
    </message>
    <message>
        <source>Save &amp;As…</source>
        <translation>حفظ باسم (&amp;س)…</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>إنهاء (&amp;ن)</translation>
    </message>
    <message>
        <source>Ctrl+Q</source>
        <translation>Ctrl+Q</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>عرض (&amp;ع)</translation>
    </message>
    <message>
        <source>&amp;Colours</source>
        <translation>الألوان (&amp;ل)</translation>
    </message>
    <message>
        <source>As the &amp;System</source>
        <translation>وفق النظام (&amp;ن)</translation>
    </message>
    <message>
        <source>&amp;Light</source>
        <translation>فاتح (&amp;ف)</translation>
    </message>
    <message>
        <source>&amp;Dark</source>
        <translation>&amp;داكن</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>تحرير (&amp;ح)</translation>
    </message>
    <message>
        <source>&amp;Product</source>
        <translation>المنتج (&amp;ج)</translation>
    </message>
    <message>
        <source>New quote</source>
        <translation>عرض سعر جديد</translation>
    </message>
    <message>
        <source>%1[*] – Orvan Desk</source>
        <translation>%1[*] – Orvan Desk</translation>
    </message>
    <message>
        <source>the customer</source>
        <translation>العميل</translation>
    </message>
    <message>
        <source>the quote number</source>
        <translation>رقم عرض السعر</translation>
    </message>
    <message>
        <source>the date</source>
        <translation>التاريخ</translation>
    </message>
    <message>
        <source>1 product</source>
        <translation>منتج واحد</translation>
    </message>
    <message numerus="yes">
        <source>%n products</source>
        <translation>
            <numerusform>%n منتج</numerusform>
            <numerusform>منتج واحد</numerusform>
            <numerusform>منتجان</numerusform>
            <numerusform>%n منتجات</numerusform>
            <numerusform>%n منتجًا</numerusform>
            <numerusform>%n منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>nothing</source>
        <translation>لا شيء</translation>
    </message>
    <message>
        <source>Another desk ended without closing this quote: %1.</source>
        <translation>انتهى Orvan Desk في مكان آخر دون إغلاق عرض السعر هذا: %1.</translation>
    </message>
    <message>
        <source>“%1” could not be opened.</source>
        <translation>تعذّر فتح «%1».</translation>
    </message>
    <message>
        <source>A new quote could not be made.</source>
        <translation>تعذّر إنشاء عرض سعر جديد.</translation>
    </message>
    <message>
        <source>Open Quote</source>
        <translation>فتح عرض سعر</translation>
    </message>
    <message>
        <source>Quotes (*.quote.json);;All files (*)</source>
        <translation>عروض الأسعار (*.quote.json);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>عرض سعر</translation>
    </message>
    <message>
        <source>Save Quote</source>
        <translation>حفظ عرض السعر</translation>
    </message>
    <message>
        <source>“%1” has been saved.</source>
        <translation>حُفظ «%1».</translation>
    </message>
    <message>
        <source>“%1” could not be saved.</source>
        <translation>تعذّر حفظ «%1».</translation>
    </message>
    <message>
        <source>Save the changes to this quote?</source>
        <translation>هل تريد حفظ التغييرات في عرض السعر هذا؟</translation>
    </message>
    <message>
        <source>Changes that are not saved will be lost.</source>
        <translation>ستُفقد التغييرات التي لا تُحفظ.</translation>
    </message>
    <message>
        <source>a quote without a file</source>
        <translation>عرض سعر بلا ملف</translation>
    </message>
    <message>
        <source>“%1”</source>
        <translation>«%1»</translation>
    </message>
    <message>
        <source>The desk ended at %1 with unsaved changes to %2.

Changed: %3.</source>
        <translation>انتهى Orvan Desk في %1 مع تغييرات غير محفوظة في %2.

ما تغيّر: %3.</translation>
    </message>
    <message>
        <source>&amp;Recover</source>
        <translation>استعادة (&amp;س)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>تجاهل (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>لاحقًا (&amp;ل)</translation>
    </message>
    <message>
        <source>The recovery copy “%1” cannot be read.</source>
        <translation>لا يمكن قراءة نسخة الاستعادة «%1».</translation>
    </message>
    <message>
        <source>The unsaved changes could not be recovered.</source>
        <translation>تعذّرت استعادة التغييرات غير المحفوظة.</translation>
    </message>
    <message>
        <source>the currency</source>
        <translation>العملة</translation>
    </message>
    <message>
        <source>Quote Curre&amp;ncy…</source>
        <translation>عملة عرض السعر (&amp;س)…</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>مساعدة (&amp;س)</translation>
    </message>
    <message>
        <source>&amp;Keys</source>
        <translation>المفاتيح (&amp;م)</translation>
    </message>
    <message>
        <source>F1</source>
        <translation>F1</translation>
    </message>
    <message>
        <source>Quote Currency</source>
        <translation>تغيير العملة</translation>
    </message>
    <message>
        <source>The currency could not be changed.</source>
        <translation>تعذّر تغيير العملة.</translation>
    </message>
    <message>
        <source>&amp;Company Catalogue…</source>
        <translation>كتالوج الشركة… (&amp;C)</translation>
    </message>
    <message>
        <source>Company Catalogue</source>
        <translation>كتالوج الشركة</translation>
    </message>
    <message>
        <source>The address of the server, such as postgresql://user@server/database.
Without an address, products are looked up in this computer&apos;s own catalogue.</source>
        <translation>عنوان الخادم، مثل postgresql://user@server/database.
من دون عنوان يُبحث عن المنتجات في الكتالوج الخاص بهذا الحاسوب.</translation>
    </message>
    <message>
        <source>An address begins with postgresql://</source>
        <translation>يبدأ العنوان بـ postgresql://</translation>
    </message>
    <message>
        <source>This address cannot be used.</source>
        <translation>لا يمكن استخدام هذا العنوان.</translation>
    </message>
    <message>
        <source>%1 (read only)</source>
        <translation>%1 (للقراءة فقط)</translation>
    </message>
    <message>
        <source>E&amp;xplain…</source>
        <translation>&amp;شرح…</translation>
    </message>
    <message>
        <source>F9</source>
        <translation>F9</translation>
    </message>
    <message>
        <source>The amounts could not be explained.</source>
        <translation>تعذّر شرح المبالغ.</translation>
    </message>
    <message>
        <source>Some settings of this computer cannot be used.</source>
        <translation>لا يمكن استخدام بعض إعدادات هذا الحاسوب.</translation>
    </message>
    <message>
        <source>Copy &amp;Details for Support</source>
        <translation>نسخ معلومات للدعم الفني (&amp;D)</translation>
    </message>
    <message>
        <source>The details for support could not be copied.</source>
        <translation>تعذّر نسخ المعلومات للدعم الفني.</translation>
    </message>
    <message>
        <source>The details for support have been copied.</source>
        <translation>نُسخت المعلومات للدعم الفني.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::PriceListDialog</name>
    <message>
        <source>1 row</source>
        <translation>صف واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln rows</source>
        <translation>
            <numerusform>%Ln صف</numerusform>
            <numerusform>%Ln صف</numerusform>
            <numerusform>صفّان (%Ln)</numerusform>
            <numerusform>%Ln صفوف</numerusform>
            <numerusform>%Ln صفًا</numerusform>
            <numerusform>%Ln صف</numerusform>
        </translation>
    </message>
    <message>
        <source>1 product</source>
        <translation>منتج واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln products</source>
        <translation>
            <numerusform>%Ln منتج</numerusform>
            <numerusform>%Ln منتج</numerusform>
            <numerusform>منتجان (%Ln)</numerusform>
            <numerusform>%Ln منتجات</numerusform>
            <numerusform>%Ln منتجًا</numerusform>
            <numerusform>%Ln منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>Unicode (UTF-8)</source>
        <translation>يونيكود (UTF-8)</translation>
    </message>
    <message>
        <source>Unicode (UTF-16)</source>
        <translation>يونيكود (UTF-16)</translation>
    </message>
    <message>
        <source>Western Europe (Windows-1252)</source>
        <translation>غرب أوروبا (Windows-1252)</translation>
    </message>
    <message>
        <source>Central Europe (Windows-1250)</source>
        <translation>وسط أوروبا (Windows-1250)</translation>
    </message>
    <message>
        <source>Cyrillic (Windows-1251)</source>
        <translation>السيريلية (Windows-1251)</translation>
    </message>
    <message>
        <source>Greek (Windows-1253)</source>
        <translation>اليونانية (Windows-1253)</translation>
    </message>
    <message>
        <source>Turkish (Windows-1254)</source>
        <translation>التركية (Windows-1254)</translation>
    </message>
    <message>
        <source>Central Europe (ISO 8859-2)</source>
        <translation>وسط أوروبا (ISO 8859-2)</translation>
    </message>
    <message>
        <source>Cyrillic (ISO 8859-5)</source>
        <translation>السيريلية (ISO 8859-5)</translation>
    </message>
    <message>
        <source>Cyrillic (KOI8-R)</source>
        <translation>السيريلية (KOI8-R)</translation>
    </message>
    <message>
        <source>Western Europe (DOS)</source>
        <translation>غرب أوروبا (DOS)</translation>
    </message>
    <message>
        <source>Import Price List “%1”</source>
        <translation>استيراد قائمة الأسعار «%1»</translation>
    </message>
    <message>
        <source>What was understood of the list</source>
        <translation>ما فُهم من القائمة</translation>
    </message>
    <message>
        <source>Rows that cannot be imported</source>
        <translation>صفوف لا يمكن استيرادها</translation>
    </message>
    <message>
        <source>&amp;Leave out the rows that have errors</source>
        <translation>تجاهل الصفوف التي بها أخطاء (&amp;ج)</translation>
    </message>
    <message>
        <source>none</source>
        <translation>لا شيء</translation>
    </message>
    <message>
        <source>&amp;Sheet</source>
        <translation>الورقة (&amp;و)</translation>
    </message>
    <message>
        <source>&amp;Encoding</source>
        <translation>الترميز (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;Separator</source>
        <translation>الفاصل (&amp;ف)</translation>
    </message>
    <message>
        <source>&amp;Decimals</source>
        <translation>الفاصلة العشرية (&amp;ع)</translation>
    </message>
    <message>
        <source>Line with the &amp;names of the columns</source>
        <translation>سطر أسماء الأعمدة (&amp;س)</translation>
    </message>
    <message>
        <source>First line with a &amp;product</source>
        <translation>أول سطر فيه منتج (&amp;ن)</translation>
    </message>
    <message>
        <source>Choose above which column has the name or the part number.</source>
        <translation>اختر أعلاه العمود الذي فيه الاسم أو رقم القطعة.</translation>
    </message>
    <message>
        <source>Prices such as “%1” can be read in two ways. Choose the decimals above.</source>
        <translation>أسعار مثل «%1» تُقرأ على وجهين. اختر الفاصلة العشرية أعلاه.</translation>
    </message>
    <message>
        <source>The list has no products to import.</source>
        <translation>ليس في القائمة منتجات للاستيراد.</translation>
    </message>
    <message>
        <source>Nothing can be imported, because of errors in %1.</source>
        <translation>لا يمكن استيراد شيء بسبب أخطاء: %1.</translation>
    </message>
    <message>
        <source>%1 understood.</source>
        <translation>فُهم: %1.</translation>
    </message>
    <message>
        <source>More than %1 understood.</source>
        <translation>فُهم أكثر من %1.</translation>
    </message>
    <message>
        <source>No column has the unit price.</source>
        <translation>لا عمود فيه سعر الوحدة.</translation>
    </message>
    <message>
        <source>%1 without a price.</source>
        <translation>%1 بلا سعر.</translation>
    </message>
    <message>
        <source>No column has the part number.</source>
        <translation>لا عمود فيه رقم القطعة.</translation>
    </message>
    <message>
        <source>No column has the name.</source>
        <translation>لا عمود فيه الاسم.</translation>
    </message>
    <message>
        <source>%1 left out because of errors.</source>
        <translation>تُجوهل بسبب أخطاء: %1.</translation>
    </message>
    <message>
        <source>%1 skipped: blank, repeated headers, totals.</source>
        <translation>تُخطّي %1: فارغة أو عناوين مكررة أو مجاميع.</translation>
    </message>
    <message>
        <source>Line %L1: %2</source>
        <translation>السطر %L1: %2</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>و%1 أخرى</translation>
    </message>
    <message>
        <source>&amp;Import %1</source>
        <translation>استيراد %1 (&amp;ا)</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>استيراد (&amp;ا)</translation>
    </message>
    <message>
        <source>Item id</source>
        <translation>المعرّف</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>الاسم</translation>
    </message>
    <message>
        <source>Key</source>
        <translation>المفتاح</translation>
    </message>
    <message>
        <source>Part number</source>
        <translation>رقم القطعة</translation>
    </message>
    <message>
        <source>Barcode</source>
        <translation>الباركود</translation>
    </message>
    <message>
        <source>Unit price</source>
        <translation>سعر الوحدة</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>ملاحظة</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>السطر</translation>
    </message>
    <message>
        <source>Column %L1</source>
        <translation>العمود %L1</translation>
    </message>
    <message>
        <source>%L1 !</source>
        <translation>%L1 !</translation>
    </message>
    <message>
        <source>(not imported)</source>
        <translation>(لا يُستورد)</translation>
    </message>
    <message>
        <source>What column %L1 has</source>
        <translation>ما في العمود %L1</translation>
    </message>
</context>
<context>
    <name>orvan::desk::PrintActions</name>
    <message>
        <source>Page Set&amp;up…</source>
        <translation>إعداد الصفحة (&amp;ع)…</translation>
    </message>
    <message>
        <source>&amp;Letterhead and Columns…</source>
        <translation>الترويسة والأعمدة (&amp;ت)…</translation>
    </message>
    <message>
        <source>Print Pre&amp;view…</source>
        <translation>معاينة الطباعة (&amp;ط)…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>طباعة (&amp;ب)…</translation>
    </message>
    <message>
        <source>&amp;Export as PDF…</source>
        <translation>تصدير بصيغة PDF (&amp;ص)…</translation>
    </message>
    <message>
        <source>Some print settings cannot be used.</source>
        <translation>لا يمكن استخدام بعض إعدادات الطباعة.</translation>
    </message>
    <message>
        <source>The print settings could not be kept.</source>
        <translation>تعذّر حفظ إعدادات الطباعة.</translation>
    </message>
    <message>
        <source>The quote is printed without some of its parts.</source>
        <translation>سيُطبع عرض السعر من دون بعض أجزائه.</translation>
    </message>
    <message>
        <source>The page could not be set up.</source>
        <translation>تعذّر إعداد الصفحة.</translation>
    </message>
    <message>
        <source>The letterhead could not be changed.</source>
        <translation>تعذّر تغيير الترويسة.</translation>
    </message>
    <message>
        <source>The quote could not be previewed.</source>
        <translation>تعذّرت معاينة عرض السعر.</translation>
    </message>
    <message>
        <source>Print Preview</source>
        <translation>معاينة الطباعة</translation>
    </message>
    <message>
        <source>The quote could not be printed.</source>
        <translation>تعذّرت طباعة عرض السعر.</translation>
    </message>
    <message>
        <source>The quote has been printed.</source>
        <translation>طُبع عرض السعر.</translation>
    </message>
    <message>
        <source>The printer “%1” does not take it.</source>
        <translation>لا تقبله الطابعة «%1».</translation>
    </message>
    <message>
        <source>The quote could not be exported.</source>
        <translation>تعذّر تصدير عرض السعر.</translation>
    </message>
    <message>
        <source>Quote</source>
        <translation>عرض سعر</translation>
    </message>
    <message>
        <source>Export as PDF</source>
        <translation>تصدير بصيغة PDF</translation>
    </message>
    <message>
        <source>PDF files (*.pdf);;All files (*)</source>
        <translation>ملفات PDF (*.pdf);;كل الملفات (*)</translation>
    </message>
    <message>
        <source>“%1” could not be written.</source>
        <translation>تعذّرت كتابة «%1».</translation>
    </message>
    <message>
        <source>“%1” has been written.</source>
        <translation>كُتب «%1».</translation>
    </message>
</context>
<context>
    <name>orvan::desk::QuoteHistory</name>
    <message>
        <source>Add %1</source>
        <translation>إضافة %1</translation>
    </message>
    <message>
        <source>Duplicate %1</source>
        <translation>تكرار %1</translation>
    </message>
    <message numerus="yes">
        <source>Duplicate %n Products</source>
        <translation>
            <numerusform>تكرار %n منتج</numerusform>
            <numerusform>تكرار منتج واحد</numerusform>
            <numerusform>تكرار منتجين</numerusform>
            <numerusform>تكرار %n منتجات</numerusform>
            <numerusform>تكرار %n منتجًا</numerusform>
            <numerusform>تكرار %n منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>Paste %1</source>
        <translation>لصق %1</translation>
    </message>
    <message numerus="yes">
        <source>Paste %n Products</source>
        <translation>
            <numerusform>لصق %n منتج</numerusform>
            <numerusform>لصق منتج واحد</numerusform>
            <numerusform>لصق منتجين</numerusform>
            <numerusform>لصق %n منتجات</numerusform>
            <numerusform>لصق %n منتجًا</numerusform>
            <numerusform>لصق %n منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>Delete %1</source>
        <translation>حذف %1</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n Products</source>
        <translation>
            <numerusform>حذف %n منتج</numerusform>
            <numerusform>حذف منتج واحد</numerusform>
            <numerusform>حذف منتجين</numerusform>
            <numerusform>حذف %n منتجات</numerusform>
            <numerusform>حذف %n منتجًا</numerusform>
            <numerusform>حذف %n منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>Edit %1</source>
        <translation>تعديل %1</translation>
    </message>
    <message>
        <source>Move Products</source>
        <translation>نقل المنتجات</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>تراجع (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>تراجع: %1 (&amp;ت)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>إعادة (&amp;ع)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>إعادة: %1 (&amp;ع)</translation>
    </message>
    <message>
        <source>Ctrl+Shift+Z</source>
        <translation>Ctrl+Shift+Z</translation>
    </message>
</context>
<context>
    <name>orvan::desk::RecentFiles</name>
    <message>
        <source>%1 in %2</source>
        <translation>%1 في %2</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>المفتوحة مؤخرًا (&amp;م)</translation>
    </message>
    <message>
        <source>No Quotes Yet</source>
        <translation>لا توجد عروض أسعار بعد</translation>
    </message>
    <message>
        <source>&amp;Clear This List</source>
        <translation>مسح هذه القائمة (&amp;س)</translation>
    </message>
    <message>
        <source>“%1” is not in %2 any more, or its drive is not connected.</source>
        <translation>لم يعد الملف «%1» موجودًا في %2، أو أن محرك الأقراص غير متصل.</translation>
    </message>
    <message>
        <source>&amp;Remove from the List</source>
        <translation>إ&amp;زالة من القائمة</translation>
    </message>
    <message>
        <source>&amp;Keep</source>
        <translation>إبقاء (&amp;ق)</translation>
    </message>
</context>
<context>
    <name>orvan::desk::RecordingAction</name>
    <message>
        <source>&amp;Record What I Do</source>
        <translation>&amp;تسجيل ما أفعله</translation>
    </message>
    <message>
        <source>Record what you do with the products?</source>
        <translation>هل تريد تسجيل ما تفعله بالمنتجات؟</translation>
    </message>
    <message>
        <source>The recording holds all keys and clicks in the list and the editor, the products with their prices and notes, and what the catalogue answers. Customer and quote number are not in it. It is kept in “%1”, where only you can read it, and goes to nobody by itself.

It ends when you choose this command again, or close the window.</source>
        <translation>يحتوي التسجيل على جميع الضغطات والنقرات في القائمة والمحرر، والمنتجات بأسعارها وملاحظاتها، وإجابات الدليل. العميل ورقم العرض ليسا فيه. يُحفظ في “%1” حيث لا يقرؤه غيرك، ولا يُرسل إلى أحد من تلقاء نفسه.

ينتهي عندما تختار هذا الأمر مرة أخرى أو تغلق النافذة.</translation>
    </message>
    <message>
        <source>&amp;Record</source>
        <translation>&amp;تسجيل</translation>
    </message>
    <message>
        <source>Recording</source>
        <translation>يجري التسجيل</translation>
    </message>
    <message>
        <source>The recording could not be started.</source>
        <translation>تعذر بدء التسجيل.</translation>
    </message>
    <message>
        <source>The recording has ended. It is kept in “%1”.</source>
        <translation>انتهى التسجيل. وهو محفوظ في “%1”.</translation>
    </message>
</context>
<context>
    <name>orvan::desk::StatusLine</name>
    <message numerus="yes">
        <source>%Ln without price</source>
        <translation>
            <numerusform>%Ln بلا سعر</numerusform>
            <numerusform>واحد بلا سعر</numerusform>
            <numerusform>اثنان بلا سعر</numerusform>
            <numerusform>%Ln بلا سعر</numerusform>
            <numerusform>%Ln بلا سعر</numerusform>
            <numerusform>%Ln بلا سعر</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln without name</source>
        <translation>
            <numerusform>%Ln بلا اسم</numerusform>
            <numerusform>واحد بلا اسم</numerusform>
            <numerusform>اثنان بلا اسم</numerusform>
            <numerusform>%Ln بلا اسم</numerusform>
            <numerusform>%Ln بلا اسم</numerusform>
            <numerusform>%Ln بلا اسم</numerusform>
        </translation>
    </message>
    <message>
        <source>today</source>
        <translation>اليوم</translation>
    </message>
    <message>
        <source>yesterday</source>
        <translation>أمس</translation>
    </message>
    <message numerus="yes">
        <source>%Ln days ago</source>
        <translation>
            <numerusform>قبل %Ln يوم</numerusform>
            <numerusform>قبل يوم واحد</numerusform>
            <numerusform>قبل يومين</numerusform>
            <numerusform>قبل %Ln أيام</numerusform>
            <numerusform>قبل %Ln يومًا</numerusform>
            <numerusform>قبل %Ln يوم</numerusform>
        </translation>
    </message>
    <message>
        <source>on %1</source>
        <translation>في %1</translation>
    </message>
    <message>
        <source>No catalogue</source>
        <translation>لا يوجد كتالوج</translation>
    </message>
    <message>
        <source>“%1”: %2, imported %3</source>
        <translation>الكتالوج «%1»: %2، استُورد %3</translation>
    </message>
    <message>
        <source>1 entry</source>
        <translation>مدخل واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln entries</source>
        <translation>
            <numerusform>لا مدخلات</numerusform>
            <numerusform>مدخل واحد</numerusform>
            <numerusform>مدخلان</numerusform>
            <numerusform>%Ln مدخلات</numerusform>
            <numerusform>%Ln مدخلًا</numerusform>
            <numerusform>%Ln مدخل</numerusform>
        </translation>
    </message>
    <message>
        <source>“%1” cannot be read</source>
        <translation>لا يمكن قراءة «%1»</translation>
    </message>
    <message>
        <source>Saved.</source>
        <translation>تم الحفظ.</translation>
    </message>
    <message>
        <source>Saved. %1.</source>
        <translation>تم الحفظ. %1.</translation>
    </message>
    <message>
        <source>1 product</source>
        <translation>منتج واحد</translation>
    </message>
    <message numerus="yes">
        <source>%Ln products</source>
        <translation>
            <numerusform>لا منتجات</numerusform>
            <numerusform>منتج واحد</numerusform>
            <numerusform>منتجان</numerusform>
            <numerusform>%Ln منتجات</numerusform>
            <numerusform>%Ln منتجًا</numerusform>
            <numerusform>%Ln منتج</numerusform>
        </translation>
    </message>
    <message>
        <source>Unsaved since %1</source>
        <translation>غير محفوظ منذ %1</translation>
    </message>
    <message>
        <source>The quote holds more than can be saved</source>
        <translation>يحتوي عرض السعر على أكثر مما يمكن حفظه</translation>
    </message>
    <message>
        <source>The quote holds %L1 % of what it can hold</source>
        <translation>عرض السعر ممتلئ بنسبة %L1 %</translation>
    </message>
</context>
</TS>
